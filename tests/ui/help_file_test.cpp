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
    void finds_data();
    void finds();
};

void HelpFileTest::finds_data()
{
    testColumns<QStringList, QString, QString, QString>("files", "program", "language", "found");

    const QStringList built = {"bin/manual/en/index.html", "bin/manual/ru/index.html"};
    const QStringList installed = {"share/doc/klv/manual/en/index.html",
                                   "share/doc/klv/manual/ru/index.html"};
    testRow("nothing", QStringList{"bin/klv", "bin/readme.chm", "bin/KLV.pdf"}, "bin", "en", "");
    testRow("chm, in either language", QStringList{"bin/KLV.chm"}, "bin", "ru", "bin/KLV.chm");
    testRow("chm of a longer name", QStringList{"bin/Help KLV-20G.chm.old"}, "bin", "en",
            "bin/Help KLV-20G.chm.old");
    testRow("the first of two by name", QStringList{"bin/KLV_2.chm", "bin/KLV_1.chm"}, "bin", "en",
            "bin/KLV_1.chm");
    testRow("a folder is no file", QStringList{"bin/KLV.chm/a"}, "bin", "en", "");
    testRow("other case is another name", QStringList{"bin/klv.CHM"}, "bin", "en", "");
    testRow("chm before the pages", built + QStringList{"bin/KLV.chm"}, "bin", "en", "bin/KLV.chm");
    testRow("build, English", built, "bin", "en", "bin/manual/en/index.html");
    testRow("build, Russian", built, "bin", "ru", "bin/manual/ru/index.html");
    testRow("build before installation", built + installed, "bin", "ru",
            "bin/manual/ru/index.html");
    testRow("among the commands", installed, "bin", "ru", "share/doc/klv/manual/ru/index.html");
    testRow("in a folder of its own", installed, "lib/klv", "en",
            "share/doc/klv/manual/en/index.html");
    testRow("the language is missing", QStringList{installed.last()}, "bin", "en", "");
}

void HelpFileTest::finds()
{
    QFETCH(QStringList, files);
    QFETCH(QString, program);
    QFETCH(QString, language);
    QFETCH(QString, found);
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkpath(program));
    for (const QString& name : qAsConst(files)) {
        QFile file(root.filePath(name));
        QVERIFY(QDir(root.path()).mkpath(QFileInfo(file).path()));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCOMPARE(helpFile(root.filePath(program), language),
             found.isEmpty() ? QString() : root.filePath(found));
}

QTEST_GUILESS_MAIN(HelpFileTest)
#include "help_file_test.moc"
