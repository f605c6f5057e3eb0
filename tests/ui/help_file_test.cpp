#include "app/help_file.h"
#include "tests/support/rows.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

/// Which file Help opens, by what lies beside the program.
class HelpFileTest : public QObject
{
    Q_OBJECT

private slots:
    /// The files are separated by "|".
    void finds_data()
    {
        testColumns<QString, QString, QString, QString>("files", "program", "language", "found");
        const QString built = "bin/manual/en/index.html|bin/manual/ru/index.html";
        const QString russian = "share/doc/klv/manual/ru/index.html";
        const QString english = "share/doc/klv/manual/en/index.html";
        const QString installed = english + '|' + russian;
        testRow("nothing", "bin/klv|bin/readme.chm|bin/KLV.pdf", "bin", "en", "");
        testRow("chm", "bin/KLV.chm", "bin", "ru", "bin/KLV.chm");
        testRow("longer name", "bin/My KLV.chm.old", "bin", "en", "bin/My KLV.chm.old");
        testRow("first by name", "bin/KLV_2.chm|bin/KLV_1.chm", "bin", "en", "bin/KLV_1.chm");
        testRow("a folder is no file", "bin/KLV.chm/a", "bin", "en", "");
        testRow("other case is another name", "bin/klv.CHM", "bin", "en", "");
        testRow("chm before the pages", built + "|bin/KLV.chm", "bin", "en", "bin/KLV.chm");
        testRow("build before installation", built + '|' + installed, "bin", "ru",
                "bin/manual/ru/index.html");
        testRow("among the commands", installed, "bin", "ru", russian);
        testRow("in a folder of its own", installed, "lib/klv", "en", english);
        testRow("the language is missing", russian, "bin", "en", "");
    }

    void finds()
    {
        QFETCH(QString, files);
        QFETCH(QString, program);
        QFETCH(QString, language);
        QFETCH(QString, found);
        const QTemporaryDir root;
        QVERIFY(QDir(root.path()).mkpath(program));
        for (const QString& name : files.split('|')) {
            QFile file(root.filePath(name));
            QVERIFY(QDir(root.path()).mkpath(QFileInfo(file).path()));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QCOMPARE(helpFile(root.filePath(program), language),
                 found.isEmpty() ? QString() : root.filePath(found));
    }
};

QTEST_GUILESS_MAIN(HelpFileTest)
#include "help_file_test.moc"
