#include "link/instrument_limits.h"
#include "tests/support/rows.h"
#include "tests/sweep/list_bench.h"

#include <QClipboard>
#include <QMenu>
#include <QMessageBox>
#include <QUndoStack>

class ListTableTest : public QObject
{
    Q_OBJECT

private slots:
    void typedCells_data();
    void typedCells();
    void limitsBoundCells();
    void editedCellIsFormatted();
    void commandsEnterTheOpenCell();
    void returnGoesOnBelow();
    void rowCommands_data();
    void rowCommands();
    void undoIsBoundedInMemory();
    void keysOfRows();
    void filling_data();
    void filling();
    void copying();
    void pasting_data();
    void pasting();
    void pasteRefusesText();
    void clearing();
    void undoTakesEveryChangeBack();
    void generating();
    void transferHoldsTheRows();
    void longListsAreNotWalkedByAnEdit();
};

void ListTableTest::typedCells_data()
{
    testColumns<int, QString, QString>("column", "keys", "shown");
    testRow("frequency, giga", 0, "2.5G", "2 500 000 000");
    testRow("frequency, decimal comma", 0, "0,5k", "500");
    testRow("frequency, sign not taken", 0, "-12x34", "1 234");
    testRow("power, sign", 1, "-17", "-17");
    testRow("power, no point", 1, "-1.5", "-1");
    testRow("dwell, milliseconds", 2, "20m", "20 000");
    testRow("dwell, seconds", 2, "1.5s", "1 500 000");
    testRow("dwell, no giga", 2, "7g", "7");
}

void ListTableTest::typedCells()
{
    QFETCH(int, column);
    QFETCH(QString, keys);
    const ListBench bench;
    bench.setRows({"1,2,3"});
    bench.clickCell(0, column);
    bench.type(keys);
    bench.press(Qt::Key_Return);
    QTEST(bench.table().text(0, column), "shown");
    // Escape leaves the cell as it is.
    const QString before = bench.rows().first();
    bench.type("4");
    bench.press(Qt::Key_Escape);
    QCOMPARE(bench.rows().first(), before);
}

void ListTableTest::limitsBoundCells()
{
    ListBench bench;
    InstrumentLimits& limits = bench.fields.limits;
    limits[Quantity::Frequency] = {9000, 20000000000};
    limits[Quantity::Power] = {-30.0, 20.0};
    limits[Quantity::ListDwell] = {50, 1000000};
    bench.setRows({"1,2,3"});
    const char* const typed[] = {"90G", "77", "1"};
    for (int column = 0; column < 3; ++column) {
        bench.clickCell(0, column);
        bench.type(typed[column]);
        bench.press(Qt::Key_Return);
    }
    QCOMPARE(bench.rows(), QStringList("20 000 000 000,20,50"));
}

void ListTableTest::editedCellIsFormatted()
{
    const ListBench bench;
    bench.setRows({"1000000,-5.50,50"});
    QCOMPARE(bench.rows(), QStringList("1000000,-5.50,50"));
    QSignalSpy changes(&bench.table(), &PointTable::pointsChanged);
    bench.table().item(0, 0)->setText("2M");
    QCOMPARE(bench.rows(), QStringList("2 000 000,-5.50,50"));
    QCOMPARE(changes.size(), 1);
    bench.table().item(0, 1)->setText("5-3");
    bench.clickCell(0, 1);
    bench.type("--5");
    bench.press(Qt::Key_Return);
    QCOMPARE(bench.rows(), QStringList("2 000 000,-5.50,50"));
    QCOMPARE(bench.said, QStringList({"Row 1, Pow [dBm]: \"5-3\" is not a number",
                                      "Row 1, Pow [dBm]: \"--5\" is not a number"}));
}

void ListTableTest::commandsEnterTheOpenCell()
{
    const ListBench bench;
    bench.setRows({"1,2,3"});
    bench.clickCell(0, 0);
    bench.type("7k");
    bench.click("duplicate_List");
    QCOMPARE(bench.rows(), QStringList({"7 000,2,3", "7 000,2,3"}));
    bench.clickCell(1, 1);
    bench.type("4");
    bench.press(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(bench.rows(), QStringList({"7 000,4,3", "7 000,2,3"}));
}

void ListTableTest::returnGoesOnBelow()
{
    const ListBench bench;
    bench.setRows({"1,2,3", "4,5,6"});
    bench.clickCell(0, 0);
    bench.type("10");
    bench.press(Qt::Key_Return);
    bench.type("20");
    bench.press(Qt::Key_Tab);
    bench.type("-3");
    bench.press(Qt::Key_Return);
    QCOMPARE(bench.rows(), QStringList({"10,2,3", "20,-3,6"}));
}

void ListTableTest::rowCommands_data()
{
    testColumns<QString, int, int, QString, QString>(
        "button", "first", "last", "left", "chosen"); // the frequencies, "_" for an empty one
    const auto row = [](const char* name, const char* button, int first, int last, const char* left,
                        const char* chosen) { testRow(name, button, first, last, left, chosen); };
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

void ListTableTest::rowCommands()
{
    QFETCH(QString, button);
    QFETCH(int, first);
    QFETCH(int, last);
    const ListBench bench;
    bench.setRows({"1,,", "2,,", "3,,", "4,,"});
    bench.clickCell(first, 0);
    bench.clickCell(last, 2, Qt::ShiftModifier);
    bench.click(button);
    QStringList left;
    for (const QString& row : bench.rows())
        left << (row.section(',', 0, 0).isEmpty() ? "_" : row.section(',', 0, 0));
    QTEST(left.join(' '), "left");
    QStringList chosen;
    for (const int row : bench.table().chosenRows())
        chosen << QString::number(row);
    QTEST(chosen.join(' '), "chosen");

    if (bench.table().history().canUndo())
        bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bench.rows(),
             bench.rows().size() == 4 ? QStringList({"1,,", "2,,", "3,,", "4,,"}) : QStringList());
}

void ListTableTest::undoIsBoundedInMemory()
{
    ListBench bench;
    const QString large(3 * 1024 * 1024, '1');
    for (const char* frequency : {"1", "2", "3", "4", "5", "6"}) {
        bench.table().change({0, bench.table().rowCount(), {{frequency, large, {}}}}, "set");
        QCOMPARE(bench.table().history().canUndo(), true);
    }
    // Each but the first holds what was there before, too: 12 MB of text.
    QStringList seen;
    while (bench.table().history().canUndo()) {
        bench.table().takeBack();
        seen << bench.table().text(0, PointTable::Frequency);
    }
    QCOMPARE(seen, QStringList({"5", "4", "3", "2", "1"}));
    bench.table().bringBack();
    QCOMPARE(bench.table().text(0, PointTable::Frequency), QString("2"));
    bench.said.clear();
    bench.table().change({0, 1, {{"5", large.repeated(11), {}}}}, "set");
    QVERIFY(!bench.table().history().canUndo());
    QCOMPARE(bench.said, QStringList("This change is too large to be undone"));
}

void ListTableTest::keysOfRows()
{
    const ListBench bench;
    bench.click("add_List");
    QCOMPARE(bench.rows(), QStringList(",,"));
    bench.table().setFocus();
    bench.type("1");
    bench.press(Qt::Key_Return);
    bench.press(Qt::Key_Insert);
    bench.type("2");
    bench.press(Qt::Key_Return);
    bench.press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(bench.rows(), QStringList({"1,,", "2,,", "2,,"}));
    bench.press(Qt::Key_Up, Qt::AltModifier);
    bench.press(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(bench.rows(), QStringList({"2,,", "1,,", "2,,"}));
    bench.press(Qt::Key_Down, Qt::AltModifier);
    bench.press(Qt::Key_Delete);
    QCOMPARE(bench.rows(), QStringList({"1,,", "2,,"}));
    bench.press(Qt::Key_A, Qt::ControlModifier);
    bench.press(Qt::Key_Delete);
    QCOMPARE(bench.rows(), QStringList());
}

void ListTableTest::filling_data()
{
    testColumns<QStringList, QRect, QString, QStringList>("rows", "chosen", "command",
                                                          "filled"); // columns and rows
    const QStringList frequencies = {"1000,a,", "7,b,", ",c,", "1 000 000,d,"};
    const QRect firstCell(0, 0, 1, 1);
    testRow("whole column", frequencies, firstCell, "Fill linearly",
            QStringList{"1000,a,", "334 000,b,", "667 000,c,", "1 000 000,d,"});
    testRow("logarithmically", frequencies, firstCell, "Fill logarithmically",
            QStringList{"1000,a,", "10 000,b,", "100 000,c,", "1 000 000,d,"});
    testRow("of the selection", QStringList{"1,,", "2,0,", "3,,", "4,,", "5,-1,"},
            QRect(1, 1, 1, 4), "Fill linearly",
            QStringList{"1,,", "2,0,", "3,-0.33,", "4,-0.67,", "5,-1,"});
    testRow("two columns", QStringList{"10,0,", ",,", "30,-20,"}, QRect(0, 0, 2, 3),
            "Fill linearly", QStringList{"10,0,", "20,-10,", "30,-20,"});
    testRow("no number", QStringList{"1,,", "2,,", ",,"}, firstCell, "Fill linearly",
            QStringList{"1,,", "2,,", ",,"});
    testRow("no ratio", QStringList{",-1,", ",,", ",5,"}, QRect(1, 0, 1, 1), "Fill logarithmically",
            QStringList{",-1,", ",,", ",5,"});
    testRow("down", QStringList{",,5", ",,7", ",,9"}, QRect(2, 1, 1, 1), "Fill down",
            QStringList{",,5", ",,7", ",,7"});
    testRow("an only row", QStringList{"1,,"}, firstCell, "Fill linearly", QStringList{"1,,"});
}

void ListTableTest::filling()
{
    QFETCH(QStringList, rows);
    QFETCH(QRect, chosen);
    QFETCH(QString, command);
    QFETCH(QStringList, filled);
    const ListBench bench;
    bench.setRows(rows);
    bench.clickCell(chosen.top(), chosen.left());
    bench.clickCell(chosen.bottom(), chosen.right(), Qt::ShiftModifier);
    for (QAction* action : bench.get<QPushButton>("fill_List").menu()->actions()) {
        if (action->text() == command)
            action->trigger();
    }
    QCOMPARE(bench.rows(), filled);
    QCOMPARE(bench.said.isEmpty(), filled != rows || rows.size() == 1);
}

void ListTableTest::copying()
{
    const ListBench bench;
    bench.setRows({"1 000 000,-5.5,1 000", "2 000 000,,50", "3,0,7"});
    bench.clickCell(0, 0);
    bench.clickCell(1, 1, Qt::ShiftModifier);
    bench.press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("1000000\t-5.5\n2000000\t\n"));
    bench.clickCell(2, 1);
    bench.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(bench.rows(),
             QStringList({"1 000 000,-5.5,1 000", "2 000 000,,50", "3,1000000,-5.5", ",2000000,"}));
}

void ListTableTest::pasting_data()
{
    testColumns<QString, QPoint, QStringList>("text", "cell", "rows"); // column, row
    testRow("over the end", "1000\t0\t5\r\n2000\t-1\t6\r\n", QPoint(0, 1),
            QStringList{"1,2,3", "1 000,0,5", "2 000,-1,6"});
    testRow("beyond the last column", "7\t8\t9", QPoint(1, 0), QStringList{"1,7,8", "4,5,6"});
    testRow("decimal commas", "1 000,4\t-2,5", QPoint(0, 0), QStringList{"1 000,-2.5,3", "4,5,6"});
    testRow("groups and exponents", "1,234,567.0\n2.5E+09\n1.000.000", QPoint(0, 0),
            QStringList{"1 234 567,2,3", "2 500 000 000,5,6", "1 000 000,,"});
    testRow("no-break spaces", QString::fromUtf8("1\u00a0500\u202f000"), QPoint(0, 0),
            QStringList{"1 500 000,2,3", "4,5,6"});
    testRow("units", QString::fromUtf8("2.45 GHz\t-10 dBm\t1,5 мс"), QPoint(0, 0),
            QStringList{"2 450 000 000,-10,1 500", "4,5,6"});
    testRow("an empty cell", "\t9", QPoint(0, 0), QStringList{",9,3", "4,5,6"});
    testRow("nothing", "", QPoint(0, 0), QStringList{"1,2,3", "4,5,6"});
}

void ListTableTest::pasting()
{
    QFETCH(QString, text);
    QFETCH(QPoint, cell);
    const ListBench bench;
    bench.setRows({"1,2,3", "4,5,6"});
    QApplication::clipboard()->setText(text);
    bench.clickCell(cell.y(), cell.x());
    bench.click("paste_List");
    QTEST(bench.rows(), "rows");
    // One number goes into all cells that are chosen.
    QApplication::clipboard()->setText("11");
    bench.table().selectAll();
    bench.click("paste_List");
    QCOMPARE(bench.rows().first(), QString("11,11,11"));
    QCOMPARE(bench.rows().last(), QString("11,11,11"));
}

void ListTableTest::pasteRefusesText()
{
    const ListBench bench;
    bench.setRows({"1,2,3"});
    QApplication::clipboard()->setText("Freq [Hz]\tPow\n1\t2");
    bench.click("paste_List");
    QCOMPARE(bench.rows(), QStringList("1,2,3"));
    QApplication::clipboard()->setText("1 MHz");
    bench.table().selectAll();
    bench.click("paste_List");
    QCOMPARE(bench.rows(), QStringList("1,2,3"));
    QCOMPARE(bench.said, QStringList({"Not pasted: \"Freq [Hz]\" is not a number",
                                      "Not pasted: \"1 MHz\" is not a number"}));
}

void ListTableTest::clearing()
{
    ListBench bench;
    bench.setRows({"1,2,3"});
    QStringList asked;
    const auto answer = [&](QMessageBox::StandardButton button) {
        bench.whenAsked<QMessageBox>([&, button](QMessageBox& box) {
            asked << box.text();
            QTest::mouseClick(box.button(button), Qt::LeftButton);
        });
        bench.click("clear_List");
    };
    answer(QMessageBox::No);
    QCOMPARE(bench.rows().size(), 1);
    answer(QMessageBox::Yes);
    QCOMPARE(bench.rows().size(), 0);
    QCOMPARE(asked, QStringList({"Do you want to clear List?", "Do you want to clear List?"}));
    bench.click("undo_List");
    QCOMPARE(bench.rows(), QStringList("1,2,3"));
}

void ListTableTest::undoTakesEveryChangeBack()
{
    const ListBench bench;
    QVERIFY(!bench.get<QPushButton>("undo_List").isEnabled());
    QList<QStringList> states = {bench.rows()};
    const auto note = [&] { states << bench.rows(); };
    bench.click("add_List"), note();
    bench.table().setFocus();
    bench.type("5"), bench.press(Qt::Key_Return), note();
    bench.click("duplicate_List"), note();
    bench.clickCell(1, 0), bench.type("9k"), bench.press(Qt::Key_Return), note();
    bench.click("duplicate_List"), note();
    bench.table().selectAll();
    bench.click("delete_List"), note();
    for (int i = states.size() - 2; i >= 0; --i) {
        bench.click("undo_List");
        QCOMPARE(bench.rows(), states.at(i));
    }
    QVERIFY(!bench.get<QPushButton>("undo_List").isEnabled());
    for (int i = 1; i < states.size(); ++i) {
        bench.click("redo_List");
        QCOMPARE(bench.rows(), states.at(i));
    }
    QVERIFY(!bench.get<QPushButton>("redo_List").isEnabled());
}

void ListTableTest::generating()
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

void ListTableTest::transferHoldsTheRows()
{
    const ListBench bench;
    bench.setRows({"1,2,3", "4,5,6"});
    bench.clickCell(0, 0);
    QWidget bar(&bench.table());
    bar.setObjectName("progressBarForTable");
    for (const char* button : {"add_List", "delete_List", "undo_List"})
        bench.click(button);
    bench.table().item(0, 0)->setText("7");
    QCOMPARE(bench.rows(), QStringList({"1,2,3", "4,5,6"}));
    QCOMPARE(bench.said.size(), 4);
}

void ListTableTest::longListsAreNotWalkedByAnEdit()
{
    const ListBench bench;
    QStringList rows;
    for (int row = 0; row < 10000; ++row)
        rows << "1,2,3";
    bench.setRows(rows);
    int touched = 0;
    connect(bench.table().model(), &QAbstractItemModel::dataChanged,
            [&](const QModelIndex& from, const QModelIndex& to) {
                touched += to.row() - from.row() + 1;
            });
    bench.clickCell(5000, 0);
    bench.type("8");
    bench.press(Qt::Key_Return);
    QCOMPARE(bench.table().text(5000, 0), QString("8"));
    QVERIFY2(touched <= 4, qPrintable(QString::number(touched)));
}

QTEST_MAIN(ListTableTest)
#include "list_table_test.moc"
