#include "fields/number_edit.h"
#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

/// What the window says of a run, of what the instrument refuses, and of what excludes each other.
class RunDisplayTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init();

    void aRunIsSeenEverywhere_data();
    void aRunIsSeenEverywhere();
    void aSinglePassEnds();
    void aTriggeredRunShowsWhatIsKnown();
    void refusedStepsMoveNothing_data();
    void refusedStepsMoveNothing();
    void refusedSetUpIsStopped_data();
    void refusedSetUpIsStopped();
    void errorsAreCounted();
    void exclusionsSpeak_data();
    void exclusionsSpeak();
    void anotherInstrumentBounds();
    void deadInstrumentEndsTheTransfer_data();
    void deadInstrumentEndsTheTransfer();

private:
    QPushButton& button(const char* name) { return m_rig->get<QPushButton>(name); }
    QString text(const char* name) { return m_rig->get<QLabel>(name).text(); }
    void set(const char* name, const QString& value)
    {
        auto& field = m_rig->get<QLineEdit>(name);
        field.setText(value);
        emit field.editingFinished();
    }
    void fillList(const QStringList& rows);
    void setUp();
    void click(const QString& names);
    /// What the display shows of a run: lamp, point and figures.
    QString shown();
};

void RunDisplayTest::init()
{
    PanelTest::init();
    m_rig = std::make_unique<PanelRig>();
}

void RunDisplayTest::fillList(const QStringList& rows)
{
    auto& table = m_rig->get<QTableWidget>("table_List");
    table.setRowCount(rows.size());
    for (int row = 0; row < rows.size(); ++row) {
        const QStringList cells = rows.at(row).split(';');
        for (int column = 0; column < cells.size(); ++column)
            table.setItem(row, column, new QTableWidgetItem(cells.at(column)));
    }
}

/// A sweep of 5 points and a list of 3 that stand at their first point for long.
void RunDisplayTest::setUp()
{
    set("Step", "5");
    set("Start", "10 000 000");
    set("Stop", "50 000 000");
    set("Time", "10 000 000");
    set("Freq_Pow", "-4");
    fillList({"1 000 000;-1;9 000 000", "2 000 000;-2;9 000 000", "3 000 000;-3;9 000 000"});
    m_rig->connectDevice();
    set("FREQ", "2 351 000 000");
    set("POW", "-7");
    m_demo->takeSent();
}

void RunDisplayTest::click(const QString& names)
{
    for (const QString& name : names.split(' ', Qt::SkipEmptyParts))
        button(qPrintable(name)).click();
}

QString RunDisplayTest::shown()
{
    const auto of = [this](const char* name) {
        return m_rig->get(name).isVisible() ? text(name) : QStringLiteral("-");
    };
    const QString lamp = m_rig->get("label_Run").isEnabled() ? "" : " grey";
    return QStringList{of("label_Run") + lamp, of("run_point"), of("run_FREQ"), of("run_POW")}.join(
        " | ");
}

void RunDisplayTest::aRunIsSeenEverywhere_data()
{
    testColumns<QString, QString, QString>("clicks", "run", "display");
    const QString sweep = "button_Sweep";
    const QString list = "button_List";
    testRow("sweep", "", sweep, "SWEEP | Point 1 of 5 | 10 000 000 | -4");
    testRow("power sweep", "power_toFrom_freq", sweep,
            "SWEEP | Point 1 of 5 | 1 000 000 000 | -10");
    testRow("list", "List_is_Checked", list, "LIST | Point 1 of 3 | 1 000 000 | -1");
    testRow("sweep by hand", "time_select", sweep, "SWEEP | Point 1 of 5 | 10 000 000 | -4");
    testRow("list by hand", "List_is_Checked time_select", list,
            "LIST | waits for a step, points: 3 | - | -");
}

/// With the panel closed too: Stop in the window is the run button's own.
void RunDisplayTest::aRunIsSeenEverywhere()
{
    QFETCH(QString, clicks);
    QFETCH(QString, run);
    QFETCH(QString, display);
    setUp();
    const QString rest = "- grey |  | - | -";
    QCOMPARE(shown(), rest);
    QVERIFY(!button("stop_run").isVisible());
    click(clicks + ' ' + run);
    QCOMPARE(shown(), display);
    QCOMPARE(button(qPrintable(run)).text(), QString("Stop"));
    // What the run returns to stays what it was.
    QCOMPARE(m_rig->get<QLineEdit>("FREQ").text(), QString("2 351 000 000"));
    QCOMPARE(m_rig->get<QLineEdit>("POW").text(), QString("-7"));
    m_demo->takeSent();
    click(run);
    const QStringList stopped = m_demo->takeSent();
    QCOMPARE(shown(), rest);

    click(run);
    m_demo->takeSent();
    QVERIFY(!m_rig->get("List").isVisible());
    m_rig->click("stop_run");
    QCOMPARE(m_demo->takeSent(), stopped);
    QCOMPARE(button(qPrintable(run)).text(), QString("Run"));
    QVERIFY(!button("stop_run").isVisible());
    QCOMPARE(shown(), rest);
    // A run that loses its instrument leaves nothing behind.
    click(run);
    (*m_demo)("unplug");
    click("trigMode");
    QVERIFY(!m_rig->isConnected());
    QCOMPARE(shown(), rest);
    QVERIFY(!button("stop_run").isVisible());
}

void RunDisplayTest::aSinglePassEnds()
{
    setUp();
    set("Time", "1 000");
    click("button_Sweep");
    QTRY_COMPARE(shown(), QString("SWEEP grey | Point 5 of 5 | 50 000 000 | -4"));
    QCOMPARE(m_rig->status(), QString("Pass finished: Stop returns to 2 351 000 000 Hz"));
    QVERIFY(button("stop_run").isVisible());
    // As the instrument, which takes no step then, the display stays where it is.
    click("right_select");
    QCOMPARE((*m_demo)("ask TRIG:STAT?"), QString("IDLE"));
    QCOMPARE(m_rig->status(), QString("-221, Settings conflict after LIST:MAN UP"));
    QCOMPARE(shown(), QString("SWEEP grey | Point 5 of 5 | 50 000 000 | -4"));
    // To be repeated, it begins anew in both.
    click("time_select trigMode");
    QVERIFY(m_rig->get("label_Run").isEnabled());
    QCOMPARE((*m_demo)("ask TRIG:STAT?"), QString("RUN"));
    // What a stop would do is said no longer than it can be done.
    click("trigMode");
    QTRY_VERIFY(m_rig->status().startsWith("Pass finished"));
    button("stop_run").setFocus();
    QTest::keyClick(&button("stop_run"), Qt::Key_Space);
    QCOMPARE(m_rig->status(), QString());
    QCOMPARE(m_rig->window().focusWidget(), &m_rig->get("FREQ"));
}

void RunDisplayTest::aTriggeredRunShowsWhatIsKnown()
{
    setUp();
    click("int_select button_Sweep");
    QCOMPARE(shown(), QString("SWEEP | by trigger, points: 5 | by trigger | -4"));
    QVERIFY(!m_rig->get("unit_FREQ").isVisible());
    click("right_select");
    QVERIFY(m_rig->get("unit_FREQ").isVisible());
    QCOMPARE(shown(), QString("SWEEP | Point 1 of 5 | 10 000 000 | -4"));
}

void RunDisplayTest::refusedStepsMoveNothing_data()
{
    testColumns<QString, QString, QString, QString, QString>("run", "step", "command", "before",
                                                             "after");
    testRow("sweep", "time_select button_Sweep", "right_select", "LIST:MAN UP",
            "SWEEP | Point 1 of 5 | 10 000 000 | -4", "SWEEP | Point 2 of 5 | 20 000 000 | -4");
    testRow("list", "List_is_Checked time_select button_List rightButton", "rightButton",
            "LIST:MAN 2", "LIST | Point 1 of 3 | 1 000 000 | -1",
            "LIST | Point 2 of 3 | 2 000 000 | -2");
}

void RunDisplayTest::refusedStepsMoveNothing()
{
    QFETCH(QString, run);
    QFETCH(QString, step);
    QFETCH(QString, command);
    setUp();
    click(run);
    m_demo->takeSent();
    (*m_demo)("error -222");
    click(step);
    QCOMPARE(m_demo->takeSent().filter("LIST:MAN").size(), 1);
    QTEST(shown(), "before");
    QCOMPARE(m_rig->status(), "-222, Data out of range after " + command);
    QCoreApplication::processEvents();
    click(step);
    QTEST(shown(), "after");
}

void RunDisplayTest::refusedSetUpIsStopped_data()
{
    testColumns<QString, QString, QString>("clicks", "status", "stopped");
    testRow("sweep", "button_Sweep",
            "The sweep does not run: -222, Data out of range after FREQ:START "
            "99000000000",
            "ABORt");
    testRow("list", "List_is_Checked button_List",
            "The list does not run: -222, Data out of range after LIST:FREQ "
            "99 000 000 000Hz",
            "*ABORt");
}

void RunDisplayTest::refusedSetUpIsStopped()
{
    QFETCH(QString, clicks);
    QFETCH(QString, stopped);
    setUp();
    m_rig->get<QLineEdit>("Start").setText("99 000 000 000");
    fillList({"99 000 000 000;0;1 000"});
    {
        auto& table = m_rig->get<QTableWidget>("table_List");
        const QSignalBlocker unbounded(table);
        table.item(0, 0)->setText("99 000 000 000");
    }
    click(clicks);
    QTEST(m_rig->status(), "status");
    const QStringList sent = m_demo->takeSent();
    QVERIFY2(sent.filter("INIT:IMM").isEmpty(), qPrintable(sent.join('\n')));
    QCOMPARE(sent.filter(QRegularExpression("^\\*?ABORt")), QStringList(stopped + "\\n"));
    QVERIFY(!button("stop_run").isVisible());
    QCOMPARE(button("errors").text(), QString("1 error"));
}

void RunDisplayTest::errorsAreCounted()
{
    setUp();
    QVERIFY(!button("errors").isVisible());
    (*m_demo)("error -310 <b>" + QString(5000, 'x'));
    set("FREQ", "5 000 000");
    QCOMPARE(button("errors").text(), QString("1 error"));
    QCOMPARE(m_rig->status().size(), 200);
    QVERIFY(m_rig->status().startsWith("-310, <b>xxx"));
    QVERIFY(m_rig->status().endsWith(" after FREQ 5000000.000000 Hz;FREQ?"));
    // The two conditions that have lamps of their own are none.
    for (const char* code : {"-113", "328", "329", "-222", "-350"})
        (*m_demo)(QString("error ") + code);
    click("Output");
    QCOMPARE(button("errors").text(), QString("4 errors"));
    QCOMPARE(m_rig->status(), QString("-350, Queue overflow after OUTPut ON"));
    const auto actions = m_rig->window().findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->data().toString() == "ru")
            action->trigger();
    }
    QCoreApplication::processEvents();
    QCOMPARE(button("errors").text(), QString::fromUtf8("4 ошибки"));
    m_rig->click("errors");
    QVERIFY(!button("errors").isVisible());
    (*m_demo)("error -113");
    click("Output");
    QCOMPARE(button("errors").text(), QString::fromUtf8("1 ошибка"));
    // The key that clears the count while a run goes on is the RF output's no sooner than wanted.
    click("button_Sweep");
    button("errors").setFocus();
    for (int press = 0; press < 2; ++press)
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_Space);
    QVERIFY(!button("errors").isVisible());
    QVERIFY(!button("Output").isChecked());
}

void RunDisplayTest::exclusionsSpeak_data()
{
    testColumns<QString, QString>("clicks", "status");
    const auto row = [](const char* clicks, const char* status) {
        testRow(clicks, clicks, status);
    };
    row("sine_select button_Sweep", "LF generator off: a sweep has started");
    row("AM List_is_Checked button_List", "Modulation off: a list has started");
    row("Pulse sine_select", "Modulation off: the LF generator is on");
    row("sine_select FM", "LF generator off: a modulation is on");
    row("button_Sweep Pulse", "Sweep stopped: a modulation is on");
    row("List_is_Checked button_List dc_select", "List stopped: the LF generator is on");
    row("button_Sweep button_List", "Sweep stopped: a list has started");
    row("button_Sweep Pulse int_select button_Sweep", "Modulation off: a sweep has started");
}

void RunDisplayTest::exclusionsSpeak()
{
    QFETCH(QString, clicks);
    setUp();
    click(clicks);
    QTEST(m_rig->status(), "status");
}

void RunDisplayTest::anotherInstrumentBounds()
{
    (*m_demo)("instruments [1111]\nmodel=KLV-6G\n");
    set("Stop", "50G");
    m_rig->get<QLineEdit>("Stop").setText("50 000 000 000");
    fillList({"50 000 000 000;0;1 000", ";90;", "1 000 000;-5;1 000"});
    m_rig->connectDevice();
    QCOMPARE(m_rig->status(),
             QString("3 values of sweep and list were bounded by the limits of the instrument"));
    const InstrumentLimits& limits = m_rig->get<NumberEdit>("FREQ").context().limits;
    const auto& table = m_rig->get<QTableWidget>("table_List");
    const auto plain = [](QString text) { return text.remove(' '); };
    const QString highest = QString::number(limits[Quantity::Frequency].max, 'f', 0);
    QCOMPARE(plain(m_rig->get<QLineEdit>("Stop").text()), highest);
    QCOMPARE(plain(table.item(0, 0)->text()), highest);
    QCOMPARE(table.item(1, 0)->text(), QString());
    QCOMPARE(table.item(1, 1)->text().toDouble(), limits[Quantity::Power].max);
    QCOMPARE(table.item(2, 1)->text(), QString("-5"));
}

void RunDisplayTest::deadInstrumentEndsTheTransfer_data()
{
    testColumns<int>("answered");
    testRow("first block", 0);
    testRow("block amid the list", 2);
}

void RunDisplayTest::deadInstrumentEndsTheTransfer()
{
    QFETCH(int, answered);
    setUp();
    m_rig->get<QTableWidget>("table_List").setRowCount(320);
    click("List_is_Checked");
    m_demo->takeSent();
    // The block goes out; nothing answers the query behind it.
    const auto die = [this] { (*m_demo)("reply *OPC? ->"); };
    if (answered == 0)
        die();
    else
        whenSent(m_rig->window(), *m_demo, "LIST:FREQ:ADD", die);
    click("button_List");
    QVERIFY(!m_rig->isConnected());
    QCOMPARE(m_rig->status(), QString("connection error: the instrument does not answer"));
    QCOMPARE(m_demo->takeSent().filter("*OPC?").size(), answered + 1);
    QVERIFY(!m_rig->window().findChild<QWidget*>("progressBarForTable"));
}

QTEST_MAIN(RunDisplayTest)
#include "run_display_test.moc"
