#include "sweep/list/list_file.h"
#include "tests/support/documents_folder.h"
#include "tests/support/files.h"
#include "tests/support/rows.h"
#include "tests/sweep/list_bench.h"
#include "ui/progress_bar_for_table.h"

#include <QLabel>
#include <QMenu>

namespace
{
QStringList refusal(ListFileError error, int line)
{
    return {QString("error %1 in line %2").arg(static_cast<int>(error)).arg(line)};
}

/// The rows of the file, or where and why it is refused.
QStringList linesOf(const QString& path)
{
    const ReadList read = readListFile(path);
    QStringList lines;
    for (const PointRow& row : read.rows)
        lines << QStringList{row[0], row[1], row[2]}.join('|');
    return read.error == ListFileError::None ? lines : lines + refusal(read.error, read.line);
}
} // namespace

class ListFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QDir(m_folder).removeRecursively();
        QDir().mkpath(m_folder);
    }

    void reads()
    {
        const auto row = namedRows([this](const QByteArray& contents, const QStringList& read) {
            writeFile(m_folder + "/a.csv", contents);
            QCOMPARE(linesOf(m_folder + "/a.csv"), read);
        });
        row("semicolons", "1 000 000;-5,5;1000\n", QStringList{"1 000 000|-5.5|1000"});
        row("both forms", "1;2;3\n4,5,6\n", QStringList{"1|2|3", "4|5|6"});
        row("as they stand", "1e6, +0.50,\n", QStringList{"1e6| +0.50|"});
        row("blanks", "1\u00a0000\u202f000;\u2009-5\t;1\n\u00a0\n",
            QStringList{"1 000 000| -5 |1"});
        row("carriage returns", "1,2,3\r\n\r\n4,5,6\r\n", QStringList{"1|2|3", "4|5|6"});
        row("missing fields", "1\n1,2\n,,\n", QStringList{"1||", "1|2|", "||"});
        row("fields beyond the third", "1,2,3,4,five\n", QStringList{"1|2|3"});
        row("byte order mark", QByteArray("\xEF\xBB\xBF") + "1,2,3\n", QStringList{"1|2|3"});
        row("empty", "", QStringList());
        row("a heading", "Freq;Pow;Dwell;Remark\n1;-2,5;3\n", QStringList{"1|-2.5|3"});
        row("a heading behind blank lines", "\n\"Freq [Hz]\"\n1\n", QStringList{"1||"});
        row("units in the heading", "Freq [MHz];Pow [dBm];Dwell, ms\n2,45;-2,5;0,5\n;;\n",
            QStringList{"2 450 000|-2.5|500", "||"});
        row("some units", "GHz,Pow\n1.5,1.5,1000000\n", QStringList{"1 500 000 000|1.5|1000000"});
        using E = ListFileError;
        row("a unit of another column", "Freq [Hz],Pow [s]\n1,2,3\n", refusal(E::ForeignUnit, 1));
        row("too long once converted", "Freq [GHz]\n1e99\n", refusal(E::NoNumber, 2));
        row("not to be converted", "Freq [GHz]\n1\n1e300\n", refusal(E::NoNumber, 3));
        row("nothing but a heading", "\nFreq,Pow,Dwell\n", refusal(E::NoNumber, 2));
        row("a number in the heading", "Freq,1,Dwell\n1,2,3\n", refusal(E::NoNumber, 1));
        row("two headings", "Freq,Pow\nHz,dBm\n1,2,3\n", refusal(E::NoNumber, 2));
        row("a word", "1,2,3\n4,five,6\n", refusal(E::NoNumber, 2));
        row("digits of another script", "1,\u0663,3\n", refusal(E::NoNumber, 1));
        row("signs without a digit", "1,-,3\n", refusal(E::NoNumber, 1));
        row("old line ends", "1,2,3\r4,5,6\r", refusal(E::NoNumber, 1));
        row("a long field",
            QByteArray(longestCell, '1') + "\n1,2," + QByteArray(longestCell + 1, ' '),
            refusal(E::LongCell, 2));
        row("zeros", QByteArray(100, '\0'), refusal(E::NotText, 1));
        row("not UTF-8", QByteArray("1,2,3\n4,\xA0") + "5,6\n", refusal(E::NotText, 2));
        row("a line without end", QByteArray(1 << 20, '1'), refusal(E::NotText, 1));
        row("too many lines", QByteArray("\n").repeated(mostListLines) + "1\n",
            refusal(E::TooManyLines, mostListLines + 1));
        row("just not too many", QByteArray("\n").repeated(mostListLines - 1) + "1\n",
            QStringList{"1||"});
    }

    void saving()
    {
        const auto row = freshRows(this, [this](const QString& typed, const QString& saved) {
            ListBench bench;
            bench.setRows({"1 000,2,3", ",,", "20,0,5e-05"});
            // The row that Return adds is left empty.
            bench.clickCell(2, 2);
            bench.press(Qt::Key_Return);
            QCOMPARE(bench.rows().size(), 4);
            bench.chooseFile("save_List", typed);
            const QString file = QDir(m_folder).entryList(QDir::Files).join(' ');
            QVERIFY2(QRegularExpression('^' + saved + '$').match(file).hasMatch(),
                     qPrintable(file));
            QCOMPARE(bytesOf(m_folder + '/' + file), QByteArray("1 000,2,3\n,,\n20,0,5e-05\n"));
            QCOMPARE(bench.said, QStringList("List saved: " + file));
        });
        row("with suffix", "points.csv", "points.csv");
        row("without", "points", "points.csv");
        row("another suffix", "points.txt", "points.txt");
        row("as proposed", "", "List_\\d\\d\\.\\d\\d\\.\\d\\d_\\d\\d\\.\\d\\d\\.\\d\\d\\.csv");
    }

    void savingAsksBeforeItReplaces()
    {
        ListBench bench;
        const QString old = m_folder + "/points.csv";
        writeFile(old, "old");
        for (const bool isReplaced : {false, true}) {
            bench.whenAsked(isReplaced);
            bench.chooseFile("save_List", "points");
            QTRY_COMPARE(bench.panel.findChildren<QDialog*>().size(), 0);
            QCOMPARE(bytesOf(old), QByteArray(isReplaced ? "" : "old"));
        }
    }

    /// What cannot be read leaves the table.
    void opening()
    {
        const auto row = namedRows(
            [this](const QByteArray& contents, const QString& said, const QString& frequency) {
                ListBench bench;
                bench.setRows({"9,9,9"});
                writeFile(m_folder + "/points.csv", contents);
                bench.chooseFile("open_List", "points.csv", false);
                QCOMPARE(bench.rows(), QStringList("9,9,9"));
                if (contents.isEmpty())
                    bench.whenAsked<QFileDialog>([this](QFileDialog& dialog) {
                        connect(&dialog, &QDialog::accepted,
                                [this] { QFile::remove(m_folder + "/points.csv"); });
                    });
                bench.chooseFile("open_List", "points.csv");
                QCOMPARE(bench.table().text(0, 0), frequency);
                const QString told = bench.said.join('|');
                QVERIFY2(said.isEmpty() ? told.isEmpty() : told.startsWith(said), qPrintable(told));
                if (frequency != "9")
                    bench.click("undo_List");
                QCOMPARE(bench.rows(), QStringList("9,9,9"));
            });
        const QString kept = "9";
        const QString heading = "points.csv: the first line is a heading and was skipped";
        row("no heading", QByteArray("1 000 000;-5,5;1000\n"), "", "1 000 000");
        row("words", QByteArray("Freq,Pow\n1,2,3\n"), heading, "1");
        row("units", QByteArray("MHz\n1,2,3\n"),
            "points.csv: the columns were converted from the units of the heading", "1 000 000");
        row("the table's own units", QByteArray("Hz,dBm,us\n1,2,3\n"), heading, "1");
        row("a foreign unit", QByteArray("Freq,Pow [mW]\n1,2,3\n"),
            "error: points.csv, line 1: the unit of \"Pow [mW]\" does not fit the column", kept);
        row("damaged", QByteArray("1,2,3\n4,%1,6\n"),
            "error: points.csv, line 2: \"%1\" is not a number", kept);
        row("binary", QByteArray(10, '\0'), "error: points.csv: not valid UTF-8 text", kept);
        row("gone by then", QByteArray(), "points.csv cannot be opened: ", kept);
    }

    void openingStopsARun()
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
        const progressBarForTable bar(3, &bench.table());
        bench.click("open_List");
        QVERIFY(bench.panel.isRunning());
        QCOMPARE(bench.said,
                 QStringList("No list can be opened while a table is being transferred"));
    }

    void headerNamesTheFile()
    {
        ListBench bench;
        const auto& title = bench.get<QLabel>("file_List");
        QCOMPARE(title.text(), QString());
        bench.setRows({"1,2,3"});
        QCOMPARE(title.text(), QString("new list*"));
        bench.chooseFile("save_List", "points");
        QCOMPARE(title.text(), QString("points.csv"));
        bench.click("add_List");
        QCOMPARE(title.text(), QString("points.csv*"));
        bench.click("undo_List");
        QCOMPARE(title.text(), QString("points.csv"));
        bench.table().setRowCount(5);
        QCOMPARE(title.text(), QString("points.csv*"));
        writeFile(m_folder + "/others.csv", "7,8,9\n");
        bench.chooseFile("open_List", "others.csv");
        QCOMPARE(title.text(), QString("others.csv"));
    }

    void pointsComeBack()
    {
        const auto row = freshRows(
            this, [this](const QString& saved, const QString& added, const QString& title) {
                QSettings settings(m_home.filePath("settings.ini"), QSettings::IniFormat);
                settings.clear();
                QStringList rows = {"1000000,-5.50,3"};
                {
                    ListBench bench;
                    bench.panel.restorePoints(settings);
                    bench.setRows(rows);
                    if (!saved.isEmpty())
                        bench.chooseFile("save_List", saved);
                    if (!added.isEmpty())
                        bench.setRows(rows << added);
                    bench.panel.keepPoints();
                    // The end can come in several ways, with the panels already taken apart.
                    bench.setRows({});
                    bench.panel.keepPoints();
                }
                ListBench bench;
                QCOMPARE(bench.rows(), QStringList());
                bench.panel.restorePoints(settings);
                QCOMPARE(bench.rows(), rows);
                QCOMPARE(bench.get<QLabel>("file_List").text(), title);
                QVERIFY(!bench.table().history().canUndo());
                bench.setRows({});
                bench.panel.keepPoints();
                ListBench last;
                last.panel.restorePoints(settings);
                QCOMPARE(last.rows(), QStringList());
            });
        row("never saved", "", "7,8,9", "new list*");
        row("saved", "points", "", "points.csv");
        row("changed since", "points", "7,8,9", "points.csv*");
    }

    void unreadablePointsAreNotLost()
    {
        const QByteArray damaged = "1,2,3\n4,%1,6\n";
        writeFile(m_folder + "/List_last.csv", damaged);
        QSettings settings(m_home.filePath("settings.ini"), QSettings::IniFormat);
        ListBench bench;
        bench.panel.restorePoints(settings);
        QCOMPARE(bench.said, QStringList("The list of the last time cannot be read"));
        bench.panel.keepPoints();
        QCOMPARE(bytesOf(m_folder + "/List_last.csv"), damaged);
    }

    void recentFiles()
    {
        QSettings settings(m_home.filePath("settings.ini"), QSettings::IniFormat);
        settings.clear();
        const QString elsewhere = m_folder + "/else & where";
        writeFile(elsewhere + "/a.csv", "1,,\n");
        writeFile(elsewhere + "/b.csv", "2,,\n");
        {
            ListBench bench;
            bench.panel.restorePoints(settings);
            QVERIFY(!bench.get<QPushButton>("recent_List").isEnabled());
            bench.chooseFile("open_List", elsewhere + "/a.csv");
            bench.chooseFile("open_List", elsewhere + "/b.csv");
            bench.panel.keepPoints();
        }
        ListBench bench;
        bench.panel.restorePoints(settings);
        QString folder;
        bench.answer<QFileDialog>("open_List", [&](QFileDialog& dialog) {
            folder = dialog.directory().path();
            dialog.reject();
        });
        QCOMPARE(folder, elsewhere);
        QVERIFY(bench.get<QPushButton>("recent_List").isEnabled());
        QMenu& menu = *bench.get<QPushButton>("recent_List").menu();
        const auto openOldest = [&] {
            emit menu.aboutToShow();
            menu.actions().last()->trigger();
        };
        openOldest();
        QCOMPARE(bench.rows(), QStringList("1,,"));
        QFile::remove(elsewhere + "/b.csv");
        openOldest();
        QCOMPARE(bench.rows(), QStringList("1,,"));
        emit menu.aboutToShow();
        QCOMPARE(menu.actions().size(), 1);
        QVERIFY(menu.actions().first()->text().startsWith("a.csv\t"));
    }

    void openingAsksAboutManyPoints()
    {
        constexpr int many = 100001;
        ListBench bench;
        writeFile(m_folder + "/points.csv", QByteArray("1,2,3\n").repeated(many));
        for (const bool isOpened : {false, true}) {
            bench.whenAsked(isOpened);
            bench.chooseFile("open_List", "points.csv");
            QTRY_COMPARE(bench.panel.findChildren<QDialog*>().size(), 0);
            QCOMPARE(bench.table().rowCount(), isOpened ? many : 0);
        }
    }

private:
    QTemporaryDir m_home;
    DocumentsFolder m_documents{m_home.path()};
    const QString m_folder = m_documents.path() + "/Veltro KLV";
};

QTEST_MAIN(ListFileTest)
#include "list_file_test.moc"
