#include "sweep/list/list_file.h"
#include "tests/support/documents_folder.h"
#include "tests/support/rows.h"
#include "tests/sweep/list_bench.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QTemporaryDir>

namespace
{
QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

void write(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("no %s", qUtf8Printable(path));
}

QStringList linesOf(const PointRows& rows)
{
    QStringList lines;
    for (const PointRow& row : rows)
        lines << QStringList{row[0], row[1], row[2]}.join('|');
    return lines;
}
} // namespace

class ListFileTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void takesAMillionLines();
    void writesBytes();
    void saving_data();
    void saving();
    void savingAsksBeforeItReplaces();
    void savingNeverHarmsTheOldFile();
    void opening();
    void openingKeepsTheTable_data();
    void openingKeepsTheTable();
    void openingStopsARun();
    void openingAsksAboutManyPoints_data();
    void openingAsksAboutManyPoints();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QString listFolder() const { return m_documents->path() + "/Veltro KLV"; }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DocumentsFolder> m_documents;
};

void ListFileTest::initTestCase()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_documents = std::make_unique<DocumentsFolder>(path("home"));
}

void ListFileTest::init()
{
    QDir(m_documents->path()).removeRecursively();
    QDir().mkpath(m_documents->path());
}

void ListFileTest::reads_data()
{
    testColumns<QByteArray, QStringList>("contents", "rows");
    const auto row = [](const char* name, const QByteArray& contents, const QStringList& rows) {
        testRow(name, contents, rows);
    };
    row("semicolons", "1 000 000;-5,5;1000\n", {"1 000 000|-5.5|1000"});
    row("both forms", "1;2;3\n4,5,6\n", {"1|2|3", "4|5|6"});
    row("as they stand", "1e6, +0.50,\n", {"1e6| +0.50|"});
    row("blanks of all kinds", "1\u00a0000\u202f000;\u2009-5\t;1\n\u00a0\n", {"1 000 000| -5 |1"});
    row("carriage returns", "1,2,3\r\n\r\n4,5,6\r\n", {"1|2|3", "4|5|6"});
    row("missing fields", "1\n1,2\n,,\n", {"1||", "1|2|", "||"});
    row("fields beyond the third", "1,2,3,4,five\n", {"1|2|3"});
    row("byte order mark",
        "\xEF\xBB\xBF"
        "1,2,3\n",
        {"1|2|3"});
    row("empty", "", {});
    row("a heading", "Freq;Pow;Dwell;Remark\n1;-2,5;3\n", {"1|-2.5|3"});
    row("a heading behind blank lines", "\n\"Freq [Hz]\"\n1\n", {"1||"});
}

void ListFileTest::reads()
{
    QFETCH(QByteArray, contents);
    write(path("a.csv"), contents);
    const ReadList read = readListFile(path("a.csv"));
    QCOMPARE(static_cast<int>(read.error), 0);
    QTEST(linesOf(read.rows), "rows");
}

void ListFileTest::refuses_data()
{
    testColumns<QByteArray, int, int>("contents", "error", "line");
    const auto row = [](const char* name, const QByteArray& contents, ListFileError error,
                        int line) { testRow(name, contents, static_cast<int>(error), line); };
    using E = ListFileError;
    row("nothing but a heading", "\nFreq,Pow,Dwell\n", E::NoNumber, 2);
    row("a number in the heading", "Freq,1,Dwell\n1,2,3\n", E::NoNumber, 1);
    row("two headings", "Freq,Pow\nHz,dBm\n1,2,3\n", E::NoNumber, 2);
    row("a word", "1,2,3\n4,five,6\n", E::NoNumber, 2);
    row("digits of another script", "1,\u0663,3\n", E::NoNumber, 1);
    row("signs without a digit", "1,-,3\n", E::NoNumber, 1);
    row("old line ends", "1,2,3\r4,5,6\r", E::NoNumber, 1);
    row("a long field",
        "1,2,3\n" + QByteArray(longestCell, '1') + "\n1,2," + QByteArray(longestCell + 1, ' '),
        E::LongCell, 3);
    row("zeros", QByteArray(100, '\0'), E::NotText, 1);
    row("UTF-16",
        QByteArray("\xFF\xFE"
                   "1\0,\0"
                   "2\0",
                   8),
        E::NotText, 1);
    row("not UTF-8",
        "1,2,3\n4,\xA0"
        "5,6\n",
        E::NotText, 2);
    row("a line without end", QByteArray(1 << 20, '1'), E::NotText, 1);
    row("too many lines", QByteArray("1,2,3\n").repeated(mostListLines + 1), E::TooManyLines,
        mostListLines + 1);
}

void ListFileTest::refuses()
{
    QFETCH(QByteArray, contents);
    write(path("a.csv"), contents);
    const ReadList read = readListFile(path("a.csv"));
    QTEST(static_cast<int>(read.error), "error");
    QTEST(read.line, "line");
    QVERIFY(read.rows.empty());
}

void ListFileTest::takesAMillionLines()
{
    write(path("a.csv"), QByteArray("1,2,3\n").repeated(mostListLines));
    const ReadList read = readListFile(path("a.csv"));
    QCOMPARE(static_cast<int>(read.error), 0);
    QCOMPARE(static_cast<int>(read.rows.size()), mostListLines);
}

void ListFileTest::writesBytes()
{
    const PointRows rows = {{"1 000 000", "-5.5", "1000"}, {"", "", ""}, {"20", "0", "5e-05"}};
    QCOMPARE(writeWholeFile(path("a.csv"), listText(rows)).fault, FileFault::None);
    QCOMPARE(contentsOf(path("a.csv")), QByteArray("1 000 000,-5.5,1000\n,,\n20,0,5e-05\n"));
    QCOMPARE(linesOf(readListFile(path("a.csv")).rows), linesOf(rows));
    QCOMPARE(writeWholeFile(path("a.csv"), listText({})).fault, FileFault::None);
    QCOMPARE(contentsOf(path("a.csv")), QByteArray());
    QVERIFY(!writeWholeFile(path("nowhere/a.csv"), "1").detail.isEmpty());
}

void ListFileTest::saving_data()
{
    testColumns<QString, QString>("typed", "saved");
    testRow("with suffix", "points.csv", "points.csv");
    testRow("without", "points", "points.csv");
    testRow("another suffix", "points.txt", "points.txt");
    testRow("as proposed", "", "");
}

void ListFileTest::saving()
{
    QFETCH(QString, typed);
    QFETCH(QString, saved);
    ListBench bench;
    bench.setRows({"1 000,2,3", "4,5,6"});
    QString proposed;
    bench.answer<QFileDialog>("save_List", [&](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Save List"));
        QCOMPARE(dialog.nameFilters(), QStringList("*.csv"));
        QCOMPARE(dialog.directory().absolutePath(), listFolder());
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        proposed = name->text();
        if (!typed.isEmpty())
            name->setText(typed);
        QTest::keyClick(name, Qt::Key_Return);
    });
    QVERIFY2(QRegularExpression("^List_\\d\\d\\.\\d\\d\\.\\d\\d_\\d\\d\\.\\d\\d\\.\\d\\d$")
                 .match(proposed)
                 .hasMatch(),
             qPrintable(proposed));
    const QString expected = saved.isEmpty() ? proposed + ".csv" : saved;
    QCOMPARE(QDir(listFolder()).entryList(QDir::Files), QStringList(expected));
    QCOMPARE(contentsOf(listFolder() + '/' + expected), QByteArray("1 000,2,3\n4,5,6\n"));
    QCOMPARE(bench.said, QStringList("List saved: " + expected));
}

void ListFileTest::savingAsksBeforeItReplaces()
{
    ListBench bench;
    QDir().mkpath(listFolder());
    const QString old = listFolder() + "/points.csv";
    write(old, "old");
    const auto save = [&](bool isReplaced) {
        bench.answer<QFileDialog>("save_List", [&bench, isReplaced](QFileDialog& dialog) {
            bench.whenAsked<QMessageBox>([isReplaced](QMessageBox& box) {
                (isReplaced ? box.buttons().first() : box.defaultButton())->click();
            });
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText("points");
            QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        QTRY_COMPARE(bench.panel.findChildren<QDialog*>().size(), 0);
    };
    save(false);
    QCOMPARE(contentsOf(old), QByteArray("old"));
    save(true);
    QCOMPARE(contentsOf(old), QByteArray());
}

/// What is being written lies beside the target until it is whole: whoever reads the old file goes
/// on reading it, or on Windows keeps it from being replaced.
void ListFileTest::savingNeverHarmsTheOldFile()
{
    write(path("a.csv"), "old");
    QFile reader(path("a.csv"));
    QVERIFY(reader.open(QIODevice::ReadOnly));
    const bool isWritten = writeWholeFile(path("a.csv"), "1,2,3\n").fault == FileFault::None;
    QCOMPARE(isWritten, QSysInfo::productType() != "windows");
    QCOMPARE(reader.readAll(), QByteArray("old"));
    QCOMPARE(contentsOf(path("a.csv")), QByteArray(isWritten ? "1,2,3\n" : "old"));
    QCOMPARE(QDir(m_folder->path()).entryList({"a.csv*"}, QDir::Files), QStringList("a.csv"));
}

void ListFileTest::opening()
{
    ListBench bench;
    bench.setRows({"9,9,9"});
    QDir().mkpath(listFolder());
    write(listFolder() + "/points.csv", "1 000 000;-5,5;1000\n");
    const auto open = [&](bool isAccepted) {
        bench.answer<QFileDialog>("open_List", [&, isAccepted](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QString("Open List"));
            QCOMPARE(dialog.nameFilters(), QStringList("CSV File ( *.csv )"));
            QCOMPARE(dialog.directory().absolutePath(), listFolder());
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText("points.csv");
            isAccepted ? static_cast<QDialog&>(dialog).accept() : dialog.reject();
        });
    };
    open(false);
    QCOMPARE(bench.rows(), QStringList("9,9,9"));
    open(true);
    QCOMPARE(bench.rows(), QStringList("1 000 000,-5.5,1000"));
    // Not one cell was taken for an edit, but the next one is.
    bench.table().item(0, 2)->setText("2m");
    QCOMPARE(bench.rows(), QStringList("1 000 000,-5.5,2 000"));
    bench.click("undo_List");
    bench.click("undo_List");
    QCOMPARE(bench.rows(), QStringList("9,9,9"));
}

void ListFileTest::openingKeepsTheTable_data()
{
    testColumns<QByteArray, QString>("contents", "message");
    testRow("damaged", QByteArray("1,2,3\n4,%1,6\n"),
            "error: points.csv, line 2: \"%1\" is not a number");
    testRow("binary", QByteArray(10, '\0'),
            "error: points.csv: not valid UTF-8 text");
    testRow("huge", QByteArray("1\n").repeated(mostListLines + 1),
            "error: points.csv: more than 1000000 lines");
    testRow("gone", QByteArray(), "points.csv cannot be opened: ");
}

void ListFileTest::openingKeepsTheTable()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, message);
    ListBench bench;
    bench.setRows({"9,9,9"});
    QDir().mkpath(listFolder());
    const QString file = listFolder() + "/points.csv";
    write(file, contents);
    bench.answer<QFileDialog>("open_List", [&](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("points.csv");
        // Gone between the choice and the reading.
        if (contents.isEmpty())
            connect(&dialog, &QDialog::accepted, [&] { QFile::remove(file); });
        static_cast<QDialog&>(dialog).accept();
    });
    QCOMPARE(bench.rows(), QStringList("9,9,9"));
    QCOMPARE(bench.said.size(), 1);
    QVERIFY2(bench.said.first().startsWith(message), qPrintable(bench.said.first()));
}

void ListFileTest::openingStopsARun()
{
    ListBench bench;
    bench.click("button_List");
    bool wasRunning = true;
    bench.answer<QFileDialog>("open_List", [&](QFileDialog& dialog) {
        wasRunning = bench.panel.isRunning();
        dialog.reject();
    });
    QVERIFY(!wasRunning && !bench.panel.isRunning());

    bench.click("button_List");
    QWidget bar(&bench.table());
    bar.setObjectName("progressBarForTable");
    bench.click("open_List");
    QVERIFY(bench.panel.isRunning());
    QCOMPARE(bench.said, QStringList("No list can be opened while a table is being transferred"));
}

void ListFileTest::openingAsksAboutManyPoints_data()
{
    testColumns<int, bool>("points", "isOpened");
    testRow("not yet", 100000, true);
    testRow("no", 100001, false);
    testRow("yes", 100001, true);
}

void ListFileTest::openingAsksAboutManyPoints()
{
    QFETCH(int, points);
    QFETCH(bool, isOpened);
    ListBench bench;
    bench.setRows({"9,9,9"});
    QDir().mkpath(listFolder());
    write(listFolder() + "/points.csv", QByteArray("1,2,3\n").repeated(points));
    QString question;
    bench.answer<QFileDialog>("open_List", [&](QFileDialog& dialog) {
        bench.whenAsked<QMessageBox>([&](QMessageBox& box) {
            question = box.text();
            (isOpened ? box.buttons().first() : box.defaultButton())->click();
        });
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("points.csv");
        static_cast<QDialog&>(dialog).accept();
    });
    QTRY_COMPARE(question.isEmpty(), points <= 100000);
    QTRY_COMPARE(bench.panel.findChildren<QDialog*>().size(), 0);
    QCOMPARE(bench.table().rowCount(), isOpened ? points : 1);
}

QTEST_MAIN(ListFileTest)
#include "list_file_test.moc"
