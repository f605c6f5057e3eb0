#include "tests/support/rows.h"
#include "tests/sweep/list_bench.h"
#include "ui/progress_bar_for_table.h"

#include <QClipboard>
#include <QMenu>
#include <QSpinBox>
#include <QUndoStack>

class ListTableTest : public QObject
{
    Q_OBJECT

private slots:
    void typedCells()
    {
        const auto row = namedRows([](int column, const char* keys, const char* shown) {
            ListBench bench;
            bench.setLimits();
            bench.setRows({"1,2,3"});
            bench.clickCell(0, column);
            bench.type(keys);
            bench.press(Qt::Key_Return);
            QCOMPARE(bench.table().text(0, column), QString(shown));
            // Escape leaves the cell as it is.
            const QString before = bench.rows().first();
            bench.type("4");
            bench.press(Qt::Key_Escape);
            QCOMPARE(bench.rows().first(), before);
        });
        row("frequency, giga", 0, "2.5G", "2 500 000 000");
        row("frequency, letter not taken", 0, "12x34k", "1 234 000");
        row("frequency, bounded", 0, "90G", "20 000 000 000");
        row("power, no point", 1, "-1.5", "-1");
        row("power, bounded", 1, "77", "20");
        row("dwell, milliseconds", 2, "20m", "20 000");
        row("dwell, no giga", 2, "700g", "700");
        row("dwell, bounded", 2, "1.5s", "1 000 000");
    }

    void editedCellIsFormatted()
    {
        const ListBench bench;
        bench.setRows({"1000000,-5.50,50"});
        QCOMPARE(bench.rows(), QStringList("1000000,-5.50,50"));
        QSignalSpy changes(&bench.table(), &PointTable::pointsChanged);
        bench.table().item(0, 0)->setText("2M");
        QCOMPARE(bench.rows(), QStringList("2 000 000,-5.50,50"));
        QCOMPARE(changes.size(), 1);
        bench.clickCell(0, 1);
        bench.type("--5");
        bench.press(Qt::Key_Return);
        QCOMPARE(bench.rows().first(), QString("2 000 000,-5.50,50"));
        QCOMPARE(bench.said, QStringList("Row 1, Pow [dBm]: \"--5\" is not a number"));
    }

    /// Commands enter the open cell first; Return goes on below, Tab to the right. A row added so
    /// is gone when the table is left with nothing in it.
    void keysOfRows()
    {
        const auto row = namedRows([](const QStringList& keys, const char* rows) {
            const ListBench bench;
            bench.setRows({"1,2,3", "4,5,6"});
            bench.clickCell(0, 0);
            for (const QString& each : keys) {
                if (each.at(0).isUpper())
                    QTest::keySequence(QApplication::focusWidget(), QKeySequence(each));
                else
                    bench.type(each);
                QCoreApplication::processEvents();
            }
            bench.get<QWidget>("save_List").setFocus();
            QCoreApplication::processEvents();
            QCOMPARE(bench.rows().join('|'), QString(rows));
        });
        row("Return", QStringList{"10", "Return", "20", "Tab", "-3", "Return"}, "10,2,3|20,-3,6");
        row("Return adds", QStringList{"Down", "Return", "8", "Return"}, "1,2,3|4,5,6|8,,");
        row("Tab stays", QStringList{"Tab", "Tab", "9", "Shift+Backtab", "8", "Return"},
            "1,8,9|4,5,6");
        row("Tab adds",
            QStringList{"Down", "7", "Tab", "8", "Tab", "9", "Tab", "1k", "Tab", "2", "Return"},
            "1,2,3|7,8,9|1 000,2,");
        row("Return to where Tab began",
            QStringList{"Down", "5", "Tab", "6", "Return", "7", "Return"}, "1,2,3|5,6,6|7,,");
        row("one unused row",
            QStringList{"Down", "Return", "Return", "Tab", "Tab", "Tab", "Ctrl+Z"}, "1,2,3|4,5,6");
        row("emptied again",
            QStringList{"Down", "Return", "8", "Tab", "Shift+Backtab", "Backspace", "Return"},
            "1,2,3|4,5,6");
        row("a key in the empty table", QStringList{"Ctrl+A", "Del", "7", "Return"}, "7,,");
        row("insert", QStringList{"Ins", "2", "Return"}, "1,2,3|2,,|4,5,6");
        row("duplicate", QStringList{"7k", "Ctrl+Shift+D"}, "7 000,2,3|7 000,2,3|4,5,6");
        row("up", QStringList{"Down", "9", "Alt+Up"}, "9,5,6|1,2,3");
        row("down", QStringList{"8", "Alt+Down"}, "4,5,6|8,2,3");
        row("all, and anew", QStringList{"Ctrl+A", "Del", "Ins", "7", "Return"}, "7,,");
        row("undo and redo", QStringList{"Del", "Ctrl+Z", "Ctrl+Z", "Ctrl+Shift+Z", "Ctrl+Shift+Z"},
            "4,5,6");
    }

    /// What a file has written is sent and saved as it stands.
    void digitsAreOnlyShownGrouped()
    {
        const ListBench bench;
        const auto picture = [&] { return bench.table().viewport()->grab().toImage(); };
        bench.setRows({"1 000 000,-1.50,2 500"});
        const QImage groupedDigits = picture();
        const QStringList fromFile = {"1000000,-1.50,2500"};
        bench.setRows(fromFile);
        QVERIFY(picture() == groupedDigits);
        // The hint of an empty table is not seen behind one row either.
        const QRect below = bench.table().viewport()->rect().adjusted(0, 100, 0, 0);
        bench.setRows(fromFile + fromFile);
        QVERIFY(picture().copy(below) == groupedDigits.copy(below));
        bench.setRows(fromFile);
        bench.clickCell(0, 0);
        bench.press(Qt::Key_F2);
        QCOMPARE(qobject_cast<QLineEdit*>(QApplication::focusWidget())->text(),
                 QString("1 000 000"));
        bench.press(Qt::Key_Tab);
        QCOMPARE(bench.rows(), fromFile);
    }

    void tabLeavesTheTableItHasLedTo()
    {
        const ListBench bench;
        bench.setRows({"1,2,3"});
        bench.clickCell(0, 2);
        bench.press(Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(!bench.table().hasFocus());
        bench.table().setFocus(Qt::TabFocusReason);
        bench.press(Qt::Key_Tab);
        QVERIFY(!bench.table().hasFocus());
        QCOMPARE(bench.rows().size(), 1);
    }

    void runsWhatHasBeenEntered()
    {
        ListBench bench;
        bench.setRows({"1,2,3"});
        bench.clickCell(0, 0);
        bench.type("7");
        bench.press(Qt::Key_Return);
        QCOMPARE(bench.rows(), QStringList({"7,2,3", ",,"}));
        QVERIFY(bench.panel.canRunList());
        QCOMPARE(bench.rows(), QStringList("7,2,3"));
        // While the instrument runs through the rows, none is added by the way.
        bench.panel.runList().setChecked(true);
        bench.press(Qt::Key_Return);
        QCOMPARE(bench.rows().size(), 1);
        bench.table().takeBack();
        QCOMPARE(bench.rows(), QStringList("1,2,3"));
    }

    void addsManyRows()
    {
        const ListBench bench;
        bench.setRows({"1,,", "2,,"});
        bench.clickCell(0, 0);
        auto& count = bench.get<QSpinBox>("add_count");
        count.setFocus();
        count.selectAll();
        bench.type("3");
        bench.press(Qt::Key_Return);
        QVERIFY(bench.table().hasFocus());
        QCOMPARE(bench.rows(), QStringList({"1,,", ",,", ",,", ",,", "2,,"}));
        QCOMPARE(bench.table().currentRow(), 1);
        bench.click("undo_List");
        QCOMPARE(bench.rows().size(), 2);
        bench.click("add_List");
        QCOMPARE(bench.rows().size(), 5);
    }

    void rowCommands()
    {
        // The frequencies, "_" for an empty one.
        const auto row = namedRows([](const char* button, int first, int last, const char* left,
                                      const char* chosen) {
            const ListBench bench;
            const QStringList rows = {"1,,", "2,,", "3,,", "4,,"};
            bench.setRows(rows);
            bench.clickCell(first, 0);
            bench.clickCell(last, 2, Qt::ShiftModifier);
            bench.click(button);
            const QStringList changed = bench.rows();
            QStringList frequencies = changed;
            frequencies.replaceInStrings(",,", "").replaceInStrings(QRegularExpression("^$"), "_");
            QCOMPARE(frequencies.join(' '), QString(left));
            QStringList numbers;
            for (const int number : bench.table().chosenRows())
                numbers << QString::number(number);
            QCOMPARE(numbers.join(' '), QString(chosen));

            if (changed == rows)
                return;
            bench.click("undo_List");
            QCOMPARE(bench.rows(), rows);
            bench.click("redo_List");
            QCOMPARE(bench.rows(), changed);
        });
        row("insert", "add_List", 1, 1, "1 2 _ 3 4", "2");
        row("delete", "delete_List", 1, 2, "1 4", "1");
        row("delete the last", "delete_List", 3, 3, "1 2 3", "2");
        row("delete all", "delete_List", 0, 3, "", "");
        row("duplicate", "duplicate_List", 1, 2, "1 2 3 2 3 4", "3 4");
        row("up", "up_List", 1, 2, "2 3 1 4", "0 1");
        row("up, no room", "up_List", 0, 1, "1 2 3 4", "0 1");
        row("down", "down_List", 1, 2, "1 4 2 3", "2 3");
        row("down, no room", "down_List", 2, 3, "1 2 3 4", "2 3");
    }

    void undoIsBoundedInMemory()
    {
        ListBench bench;
        const QString large(3 * 1024 * 1024, '1');
        for (const char* frequency : {"1", "2", "3", "4", "5", "6"})
            bench.table().change({0, bench.table().rowCount(), {{frequency, large, {}}}}, "set");
        // Each but the first holds what was there before, too: 12 MB of text.
        while (bench.table().history().canUndo())
            bench.table().takeBack();
        QCOMPARE(bench.table().text(0, PointTable::Frequency), QString("1"));
        bench.said.clear();
        bench.table().change({0, 1, {{"5", large.repeated(11), {}}}}, "set");
        QVERIFY(!bench.table().history().canUndo());
        QCOMPARE(bench.said, QStringList("This change is too large to be undone"));
    }

    void filling()
    {
        const QStringList frequencies = {"1000,a,", "7,b,", ",c,", "1 000 000,d,"};
        const QRect firstCell(0, 0, 1, 1); // columns and rows
        const auto row = namedRows([](const QStringList& rows, const QRect& chosen,
                                      const char* command, const QStringList& filled) {
            const ListBench bench;
            bench.setRows(rows);
            bench.clickCell(chosen.top(), chosen.left());
            bench.clickCell(chosen.bottom(), chosen.right(), Qt::ShiftModifier);
            for (QAction* action : bench.get<QPushButton>("fill_List").menu()->actions()) {
                if (action->text() == QString("Fill ") + command)
                    action->trigger();
            }
            QCOMPARE(bench.rows(), filled);
            QCOMPARE(bench.said.isEmpty(), filled != rows || rows.size() == 1);
        });
        row("whole column", frequencies, firstCell, "linearly",
            QStringList{"1000,a,", "334 000,b,", "667 000,c,", "1 000 000,d,"});
        row("logarithmically", frequencies, firstCell, "logarithmically",
            QStringList{"1000,a,", "10 000,b,", "100 000,c,", "1 000 000,d,"});
        row("of the selection", QStringList{"1,,", "2,0,", "3,,", "4,,", "5,-1,"},
            QRect(1, 1, 1, 4), "linearly",
            QStringList{"1,,", "2,0,", "3,-0.33,", "4,-0.67,", "5,-1,"});
        row("two columns", QStringList{"10,0,", ",,", "30,-20,"}, QRect(0, 0, 2, 3), "linearly",
            QStringList{"10,0,", "20,-10,", "30,-20,"});
        row("no number", QStringList{"1,,", "2,,", ",,"}, firstCell, "linearly",
            QStringList{"1,,", "2,,", ",,"});
        row("no ratio", QStringList{",-1,", ",,", ",5,"}, QRect(1, 0, 1, 1), "logarithmically",
            QStringList{",-1,", ",,", ",5,"});
        row("down", QStringList{",,5", ",,7", ",,9"}, QRect(2, 1, 1, 1), "down",
            QStringList{",,5", ",,7", ",,7"});
        row("an only row", QStringList{"1,,"}, firstCell, "linearly", QStringList{"1,,"});
    }

    void copying()
    {
        const ListBench bench;
        bench.setRows({"1 000 000,-5.5,1 000", "2 000 000,,50"});
        bench.clickCell(0, 0);
        bench.clickCell(1, 1, Qt::ShiftModifier);
        bench.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QString("1000000\t-5.5\n2000000\t\n"));
        bench.clickCell(1, 1);
        bench.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(bench.rows(),
                 QStringList({"1 000 000,-5.5,1 000", "2 000 000,1000000,-5.5", ",2000000,"}));
    }

    /// Into the chosen cells of the rows "1,2,3" and "4,5,6".
    void pasting()
    {
        const QRect first(0, 0, 1, 1); // columns and rows
        const auto row = namedRows([](const char* text, const QRect& chosen, const char* rows) {
            const ListBench bench;
            const QString before = "1,2,3|4,5,6";
            bench.setRows(before.split('|'));
            const QString pasted = QString::fromUtf8(text);
            QApplication::clipboard()->setText(pasted);
            bench.clickCell(chosen.top(), chosen.left());
            bench.clickCell(chosen.bottom(), chosen.right(), Qt::ShiftModifier);
            bench.click("paste_List");
            QCOMPARE(bench.rows().join('|'), QString(rows));
            const bool isRefused = rows == before && !pasted.isEmpty();
            const QString cell =
                pasted.contains('\n') ? pasted.section('\n', 1, 1) : pasted.section('\t', 0, 0);
            const QString refusal = "Not pasted: \"" + cell + "\" is not a number";
            QCOMPARE(bench.said, isRefused ? QStringList(refusal) : QStringList());
        });
        row("over the end", "1000\t0\t5\r\n2000\t-1\t6\r\n", QRect(0, 1, 1, 1),
            "1,2,3|1 000,0,5|2 000,-1,6");
        row("beyond the last column", "7\t8\t9", QRect(1, 0, 1, 1), "1,7,8|4,5,6");
        row("decimal commas", "1 000,4\t-2,5", first, "1 000,-2.5,3|4,5,6");
        row("groups and exponents", "1,234,567.0\n2.5E+09\n1.000.000", first,
            "1 234 567,2,3|2 500 000 000,5,6|1 000 000,,");
        row("no-break spaces", "1\u00a0500\u202f000", first, "1 500 000,2,3|4,5,6");
        row("units", "2.45 GHz\t-10 dBm\t1,5 мс", first, "2 450 000 000,-10,1 500|4,5,6");
        row("an empty cell", "\t9", first, ",9,3|4,5,6");
        row("nothing", "", first, "1,2,3|4,5,6");
        row("one number into all", "11", QRect(0, 0, 3, 2), "11,11,11|11,11,11");
        row("a text", "Freq\tPow", first, "1,2,3|4,5,6");
        row("a heading", "Freq [Hz]\tPow\n7\t8", first, "7,8,3|4,5,6");
        row("units in a heading", "Dwell (ms)\n2,5\n10 us", QRect(2, 0, 1, 1), "1,2,2 500|4,5,10");
        row("one number with its heading", "Freq, MHz\n1.5", QRect(0, 0, 1, 2),
            "1 500 000,2,3|1 500 000,5,6");
        row("two headings", "Freq\nHz\n1", first, "1,2,3|4,5,6");
        row("a unit that is not everywhere", "1 MHz", QRect(0, 0, 3, 2), "1,2,3|4,5,6");
    }

    void headingOfAnotherColumnIsRefused()
    {
        const ListBench bench;
        bench.setRows({"1,2,3"});
        QApplication::clipboard()->setText("Dwell [ms]\tPow\n5\t6");
        bench.clickCell(0, 0);
        bench.click("paste_List");
        QCOMPARE(bench.rows(), QStringList("1,2,3"));
        QCOMPARE(bench.said,
                 QStringList("Not pasted: the unit of \"Dwell [ms]\" does not fit the column"));
    }

    void boundedCellsAreCounted()
    {
        ListBench bench;
        bench.setLimits();
        QApplication::clipboard()->setText("90000000000\t25\t1000\n1\t0\t1000\n");
        bench.click("paste_List");
        QCOMPARE(bench.rows(), QStringList({"20 000 000 000,20,1 000", "9 000,0,1 000"}));
        QCOMPARE(bench.said, QStringList("3 values were bounded by the limits of the instrument"));
        bench.said.clear();
        // Only files bring in what is out of range.
        bench.setRows({"1 000,0,", ",,", "29 000,0,", "1 000,0,"});
        bench.clickCell(0, 0);
        bench.clickCell(2, 0, Qt::ShiftModifier);
        bench.press(Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(bench.table().text(1, 0), QString("15 000"));
        QCOMPARE(bench.said, QStringList());
        bench.clickCell(0, 0);
        bench.press(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
        QCOMPARE(bench.rows(), QStringList({"1 000,0,", "9 000,,", "9 000,0,", "9 000,0,"}));
        QCOMPARE(bench.said, QStringList("3 values were bounded by the limits of the instrument"));
    }

    void clearing()
    {
        ListBench bench;
        bench.setRows({"1,2,3"});
        for (const bool isYes : {false, true}) {
            bench.answer<Question>("clear_List", [isYes](Question& question) {
                QCOMPARE(question.objectName(), QString("clear_question"));
                question.findChild<QPushButton*>(isYes ? "yes" : "cancel")->click();
            });
            QCOMPARE(bench.rows().size(), isYes ? 0 : 1);
        }
        bench.click("undo_List");
        QCOMPARE(bench.rows(), QStringList("1,2,3"));
    }

    void generating()
    {
        const ListBench bench;
        bench.setRows({"1,2,3"});
        auto& points = bench.get<QLineEdit>("Step");
        points.setText("4");
        bench.click("generate_List");
        QCOMPARE(bench.rows(), QStringList({"25 000 000,0,1 000", "350 000 000,0,1 000",
                                            "675 000 000,0,1 000", "1 000 000 000,0,1 000"}));
        points.setText("");
        bench.click("generate_List");
        QCOMPARE(bench.rows().size(), 4);
        QCOMPARE(bench.said.size(), 1);
    }

    void transferHoldsTheRows()
    {
        const ListBench bench;
        bench.setRows({"1,2,3", "4,5,6"});
        bench.clickCell(0, 0);
        const progressBarForTable bar(3, &bench.table());
        QCOMPARE(bar.geometry(), bench.table().rect());
        for (const char* button : {"add_List", "delete_List", "undo_List"})
            bench.click(button);
        bench.table().item(0, 0)->setText("7");
        QCOMPARE(bench.rows(), QStringList({"1,2,3", "4,5,6"}));
        QCOMPARE(bench.said.size(), 4);
    }

    void longListsAreNotWalkedByAnEdit()
    {
        const ListBench bench;
        bench.setRows(QVector<QString>(10000, "1,2,3").toList());
        int touched = 0;
        connect(bench.table().model(), &QAbstractItemModel::dataChanged,
                [&](const QModelIndex& from, const QModelIndex& to) {
                    touched += to.row() - from.row() + 1;
                });
        bench.table().item(5000, 0)->setText("8k");
        QCOMPARE(bench.table().text(5000, 0), QString("8 000"));
        QVERIFY2(touched <= 4, qPrintable(QString::number(touched)));
    }
};

QTEST_MAIN(ListTableTest)
#include "list_table_test.moc"
