#include "app/help_file.h"
#include "tests/support/files.h"

#include <QtTest>

/// Which file Help opens, by what lies beside the program.
class HelpFileTest : public QObject
{
    Q_OBJECT

private slots:
    /// The files are separated by "|".
    void finds()
    {
        const QString built = "bin/manual/en/index.html|bin/manual/ru/index.html";
        const QString russian = "share/doc/klv/manual/ru/index.html";
        const QString english = "share/doc/klv/manual/en/index.html";
        const QString installed = english + '|' + russian;
        check("bin/klv|bin/readme.chm|bin/KLV.pdf", "bin", "en", "");
        check("bin/KLV.chm", "bin", "ru", "bin/KLV.chm");
        check("bin/My KLV.chm.old", "bin", "en", "bin/My KLV.chm.old");
        check("bin/KLV_2.chm|bin/KLV_1.chm", "bin", "en", "bin/KLV_1.chm");
        // Neither a folder nor another case.
        check("bin/KLV.chm/a", "bin", "en", "");
        check("bin/klv.CHM", "bin", "en", "");
        check(built + "|bin/KLV.chm", "bin", "en", "bin/KLV.chm");
        check(built + '|' + installed, "bin", "ru", "bin/manual/ru/index.html");
        check(installed, "bin", "ru", russian);
        check(installed, "lib/klv", "en", english);
        check(russian, "bin", "en", "");
    }

private:
    static void check(const QString& files, const QString& program, const QString& language,
                      const QString& found)
    {
        const QTemporaryDir root;
        QVERIFY(QDir(root.path()).mkpath(program));
        for (const QString& name : files.split('|'))
            writeFile(root.filePath(name));
        QCOMPARE(helpFile(root.filePath(program), language),
                 found.isEmpty() ? QString() : root.filePath(found));
    }
};

QTEST_GUILESS_MAIN(HelpFileTest)
#include "help_file_test.moc"
