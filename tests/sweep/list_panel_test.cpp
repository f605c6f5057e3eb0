#include "link/instrument_limits.h"
#include "sweep/sweep_group.h"
#include "tests/support/rows.h"
#include "tests/sweep/list_bench.h"

#include <QLabel>

namespace
{
const char* const sources[] = {"time_select", "int_select", "ext_select"};

QString checkedSources(const ListBench& bench)
{
    QStringList checked;
    for (const char* name : sources) {
        if (bench.get<QPushButton>(name).isChecked())
            checked << name;
    }
    return checked.join(' ');
}
} // namespace

class ListPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void limitsBoundFields_data();
    void limitsBoundFields();
    void modesKeepTheirValues();
    void sourcesExcludeOneAnother_data();
    void sourcesExcludeOneAnother();
    void stepsLeaveNoSource();
    void oneRunAndItIsSeen();
    void autoOff();
    void choosingRows();
    void steppingRows();
    void highlight();
    void compactMode_data();
    void compactMode();
};

void ListPanelTest::limitsBoundFields_data()
{
    testColumns<bool, QStringList, QStringList>("isPowerSweep", "typed", "bounded");
    testRow("frequency", false, QStringList{"50", "1", "90000000000", "5000", "1"},
            QStringList{"20", "9 000", "20 000 000 000", "5 000", "50"});
    testRow("power", true, QStringList{"1", "-99", "99", "7", "99000000000"},
            QStringList{"9 000", "-30", "20", "7", "1 000 000"});
}

void ListPanelTest::limitsBoundFields()
{
    QFETCH(bool, isPowerSweep);
    QFETCH(QStringList, typed);
    QFETCH(QStringList, bounded);
    ListBench bench(false);
    InstrumentLimits& limits = bench.fields.limits;
    limits[Quantity::Frequency] = {9000, 20000000000};
    limits[Quantity::Power] = {-30.0, 20.0};
    limits[Quantity::SweepDwell] = {50, 1000000};
    if (isPowerSweep)
        bench.click("power_toFrom_freq");
    const char* const names[] = {"Freq_Pow", "Start", "Stop", "Step", "Time"};
    for (int i = 0; i < typed.size(); ++i) {
        auto& field = bench.get<QLineEdit>(names[i]);
        field.setText(typed.at(i));
        emit field.editingFinished();
        QCOMPARE(field.text(), bounded.at(i));
        QVERIFY(!field.property("edited").toBool());
    }
}

void ListPanelTest::modesKeepTheirValues()
{
    ListBench bench(false);
    const auto shown = [&] {
        return QStringList{bench.field("Freq_Pow"), bench.field("Start"), bench.field("Stop")};
    };
    const QStringList frequencySweep = shown();
    QStringList heard;
    connect(&bench.panel, &List::sweepChanged, [&] { heard << shown().join('|'); });
    bench.click("power_toFrom_freq");
    QVERIFY(bench.panel.sweep().isPowerSweep());
    const QStringList powerSweep = {"1 000 000 000", "-10", "0"};
    QCOMPARE(shown(), powerSweep);
    // The three change at once: nobody sees the values of one mode under the other.
    QCOMPARE(heard, QStringList(powerSweep.join('|')));
    QCOMPARE(bench.get<QLabel>("label_Freq_Pow").text(), QString("Frequency"));
    QCOMPARE(bench.get<NumberEdit>("Freq_Pow").quantity(), Quantity::SweepFixedFrequency);
    QCOMPARE(bench.get<NumberEdit>("Start").quantity(), Quantity::SweepStartPower);

    QCOMPARE(bench.panel.sweep().valuesAside().start, frequencySweep.at(1));
    bench.panel.sweep().valuesAside().start = "30 000 000";
    bench.get<QLineEdit>("Stop").setText("5");
    bench.click("power_toFrom_freq");
    QCOMPARE(shown(), QStringList({"0", "30 000 000", "1 000 000 000"}));
    bench.click("power_toFrom_freq");
    QCOMPARE(shown(), QStringList({"1 000 000 000", "-10", "5"}));
}

void ListPanelTest::sourcesExcludeOneAnother_data()
{
    testColumns<QString, QString, int>("clicks", "checked", "choice");
    const auto row = [](const char* clicks, const char* checked, TriggerChoice choice) {
        testRow(clicks, clicks, checked, static_cast<int>(choice));
    };
    row("time_select", "", TriggerChoice::Manual);
    row("int_select", "int_select", TriggerChoice::ExternalRising);
    row("int_select ext_select", "ext_select", TriggerChoice::ExternalFalling);
    row("ext_select time_select", "time_select", TriggerChoice::FreeRun);
    row("ext_select ext_select", "", TriggerChoice::Manual);
}

void ListPanelTest::sourcesExcludeOneAnother()
{
    QFETCH(QString, clicks);
    ListBench bench;
    QStringList heard;
    connect(&bench.panel, &List::triggerChosen, [&] { heard << checkedSources(bench); });
    const QStringList names = clicks.split(' ');
    for (const QString& name : names)
        bench.click(name);
    QTEST(checkedSources(bench), "checked");
    QTEST(static_cast<int>(bench.panel.trigger().choice()), "choice");
    // Others are notified of a choice once, and after it has been made.
    QCOMPARE(heard.size(), names.size());
    QCOMPARE(heard.last(), checkedSources(bench));
}

void ListPanelTest::stepsLeaveNoSource()
{
    ListBench bench;
    int chosen = 0;
    connect(&bench.panel, &List::triggerChosen, [&] { ++chosen; });
    QStringList heard;
    for (QPushButton* button :
         {&bench.panel.trigger().previousPoint(), &bench.panel.trigger().nextPoint()}) {
        connect(button, &QAbstractButton::clicked, [&, button] {
            heard << button->objectName() + checkedSources(bench);
            QVERIFY(!button->isChecked());
        });
    }
    bench.click("left_select");
    bench.click("int_select");
    bench.click("right_select");
    QCOMPARE(heard, QStringList({"left_select", "right_select"}));
    QCOMPARE(chosen, 1);
}

void ListPanelTest::oneRunAndItIsSeen()
{
    const ListBench bench(false);
    const auto state = [&] {
        return QString("%1%2%3%4")
            .arg(bench.panel.runSweep().isChecked() ? 'S' : '-')
            .arg(bench.panel.runList().isChecked() ? 'L' : '-')
            .arg(bench.get<QGroupBox>("Sweep__").isVisible() ? 's' : '-')
            .arg(bench.get<QGroupBox>("List__").isVisible() ? 'l' : '-');
    };
    bench.click("button_Sweep");
    QCOMPARE(state(), QString("S-s-"));
    bench.click("List_is_Checked");
    QCOMPARE(state(), QString("---l"));
    bench.click("button_List");
    QCOMPARE(state(), QString("-L-l"));
    bench.click("List_is_Checked");
    QCOMPARE(state(), QString("--s-"));
    bench.panel.runList().click();
    QCOMPARE(state(), QString("-L-l"));
    bench.panel.runSweep().click();
    QCOMPARE(state(), QString("S-s-"));
}

void ListPanelTest::autoOff()
{
    ListBench bench;
    QSignalSpy hide(&bench.panel, &SidePanel::hide_);
    bench.click("button_List");
    int hiddenAtClick = -1;
    connect(&bench.panel.runList(), &QAbstractButton::clicked,
            [&] { hiddenAtClick = static_cast<int>(hide.size()); });
    bench.panel.autoOff();
    QVERIFY(!bench.panel.isRunning());
    QCOMPARE(hiddenAtClick, 0);
    QCOMPARE(hide.size(), 1);
    bench.panel.autoOff();
    QVERIFY(!bench.panel.isRunning());
    QCOMPARE(hide.size(), 2);
}

void ListPanelTest::choosingRows()
{
    ListBench bench;
    bench.setRows({"1,,", "2,,", "3,,"});
    QStringList chosen;
    connect(&bench.panel, &List::pointChosen,
            [&](int number) { chosen << QString::number(number); });
    bench.clickCell(0, 0);
    bench.click("button_List");
    bench.clickCell(1, 0); // time runs through the list
    QCOMPARE(chosen, QStringList());
    bench.click("time_select");
    bench.clickCell(1, 1);
    bench.clickCell(1, 2);
    bench.table().setFocus();
    bench.press(Qt::Key_Down);
    bench.clickCell(0, 0);
    QCOMPARE(chosen, QStringList({"2", "3", "1"}));
    {
        QWidget bar(&bench.table());
        bar.setObjectName("progressBarForTable");
        bench.clickCell(2, 0);
    }
    bench.click("button_List");
    bench.clickCell(1, 0);
    QCOMPARE(chosen.size(), 3);
}

void ListPanelTest::steppingRows()
{
    ListBench bench;
    bench.setRows({"1,,", "2,,", "3,,"});
    QStringList chosen;
    connect(&bench.panel, &List::pointChosen,
            [&](int number) { chosen << QString::number(number); });
    connect(&bench.panel, &List::triggerChosen, [&] { chosen << "ready"; });
    connect(&bench.panel.trigger().nextPoint(), &QAbstractButton::clicked,
            [&] { chosen << "next"; });
    const auto step = [&](const char* name) {
        bench.click(name);
        return std::exchange(chosen, {}).join(' ');
    };
    QCOMPARE(step("rightButton"), QString("next"));
    bench.click("time_select");
    bench.click("button_List");
    chosen.clear();
    // The instrument is made ready before it is moved.
    QCOMPARE(step("rightButton"), QString("ready 1"));
    QCOMPARE(step("rightButton"), QString("2"));
    QCOMPARE(bench.table().currentRow(), 1);
    QCOMPARE(step("leftButton"), QString("1"));
    QCOMPARE(step("leftButton"), QString());
    bench.clickCell(2, 0);
    QCOMPARE(step("rightButton"), QString("3"));

    // The buttons of the trigger group move no list, and say what does.
    QCOMPARE(bench.said, QStringList());
    QCOMPARE(step("right_select"), QString("next"));
    QCOMPARE(step("left_select"), QString());
    QCOMPARE(bench.said.size(), 2);
    QVERIFY(bench.said.last().contains("arrows"));

    // A free run goes on by hand from the point that it has reached.
    bench.click("time_select");
    bench.panel.highlightPoint(2);
    chosen.clear();
    QCOMPARE(step("rightButton"), QString("ready 3"));
    bench.click("time_select");
    chosen.clear();
    {
        QWidget bar(&bench.table());
        bar.setObjectName("progressBarForTable");
        QCOMPARE(step("leftButton"), QString("ready"));
    }
}

void ListPanelTest::highlight()
{
    ListBench bench;
    bench.setRows({"1,2,3", "4,5,6", "7,8,9"});
    const auto picture = [&] { return bench.table().viewport()->grab().toImage(); };
    const QStringList rows = bench.rows();
    const QImage plain = picture();
    bench.panel.highlightPoint(2);
    const QImage second = picture();
    bench.panel.highlightPoint(3);
    const QImage third = picture();
    bench.panel.highlightPoint(0);
    QVERIFY(second != plain && third != second);
    QCOMPARE(picture(), plain);
    QCOMPARE(bench.rows(), rows);
    bench.panel.highlightPoint(99);
    QCOMPARE(picture(), plain);

    // The table follows the run, unless the user has scrolled away.
    QStringList many;
    for (int row = 0; row < 1000; ++row)
        many << "1,2,3";
    bench.panel.highlightPoint(0);
    bench.setRows(many);
    const auto isInView = [&](int row) {
        return bench.table().viewport()->rect().contains(
            bench.table().visualRect(bench.table().model()->index(row, 0)).center());
    };
    bench.panel.highlightPoint(500);
    QVERIFY(isInView(499));
    bench.table().scrollToTop();
    bench.panel.highlightPoint(501);
    QVERIFY(isInView(0));
}

void ListPanelTest::compactMode_data()
{
    testColumns<QString, QString, QString>("clicks", "checked", "status");
    testRow("as at first", "", "time_select", "Single");
    testRow("continuous", "trigMode", "time_select", "Freq -  Pow");
    testRow("manual", "pushButton_Manual", "", "Freq -  Pow");
    testRow("manual twice", "pushButton_Manual pushButton_Manual", "", "Freq -  Pow");
    testRow("back", "pushButton_Manual pushButton_Auto", "time_select", "Single");
    testRow("external stays automatic", "ext_select pushButton_Auto", "ext_select", "TRIG POINT");
    testRow("external, all points", "int_select modeFront", "int_select", "Single");
    testRow("left", "leftButton", "", "Freq -  Pow");
    testRow("right", "int_select rightButton", "", "Freq -  Pow");
}

void ListPanelTest::compactMode()
{
    QFETCH(QString, clicks);
    const ListBench bench;
    for (const QString& name : clicks.split(' ', Qt::SkipEmptyParts))
        bench.click(name);
    QTEST(checkedSources(bench), "checked");
    QTEST(bench.get<QLabel>("lableStatus").text(), "status");
    const bool isManual = bench.panel.trigger().choice() == TriggerChoice::Manual;
    QCOMPARE(bench.get<QPushButton>("pushButton_Manual").isChecked(), isManual);
    QCOMPARE(bench.get<QPushButton>("pushButton_Auto").isChecked(), !isManual);
}

QTEST_MAIN(ListPanelTest)
#include "list_panel_test.moc"
