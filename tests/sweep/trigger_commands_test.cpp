#include "tests/support/rows.h"
#include "tests/sweep/sweep_rig.h"
#include "ui/progress_bar_for_table.h"

#include <memory>

namespace
{
const QStringList manual = {"TRIG:SOUR BUS", "LIST:MODE MAN!"};
const QString up = QStringLiteral("LIST:MAN UP!");
const QString down = QStringLiteral("LIST:MAN DOWN!");

QStringList external(const QString& slope, const QString& mode)
{
    return {"TRIG:SLOP " + slope, "LIST:MODE " + mode, "TRIG:SOUR EXT!"};
}
} // namespace

/// What the trigger group sends, before and in a run.
class TriggerCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_rig = std::make_unique<SweepRig>(10);
        m_rig->demo("clock stop");
        m_rig->fill({"1 000 000;-1;1 000", "2 000 000;-2;2 000", "3 000 000;-3;3 000"});
        m_rig->panel.sweep().points().setText("5");
        m_rig->panel.sweep().start().setText("10 000 000");
        m_rig->panel.sweep().stop().setText("50 000 000");
        m_rig->panel.sweep().fixedValue().setText("-4");
    }
    void cleanup() { m_rig.reset(); }

    void arrangements_data();
    void arrangements();
    void sweepStepsByHand();
    void stepTakesAFreeSweepOver();
    void listGoesToThePointChosen();
    void arrowsBesideTheTable();
    void edgesStepASweep();
    void choicesInARun_data();
    void choicesInARun();
    void nothingWhileTheTableIsSent();
    void barElsewhereHoldsOnlyTheRepeating();
    void nothingWithoutARun_data();
    void nothingWithoutARun();
    void lostConnectionStepsNoFurther();

private:
    /// Starts a run and forgets what that has sent and announced.
    void run(const QString& button)
    {
        m_rig->click(button);
        m_rig->sent();
        m_rig->events.clear();
    }

    std::unique_ptr<SweepRig> m_rig;
};

void TriggerCommandsTest::arrangements_data()
{
    testColumns<QString, QStringList, bool>("clicked", "sent", "isPulseOff");
    testRow("free", "", QStringList("TRIG:SOUR IMM!"), false);
    testRow("rising", "int_select", external("POS", "MAN"), true);
    testRow("rising, all points", "modeFront int_select", external("POS", "AUTO"), true);
    testRow("falling", "ext_select", external("NEG", "MAN"), true);
    testRow("falling, all points", "modeFront ext_select", external("NEG", "AUTO"), true);
    testRow("by hand", "time_select", manual, false);
    testRow("by hand, all points", "modeFront time_select", manual, false);
}

/// Alike at the start of a sweep and of a list, behind what is run and before the start itself.
void TriggerCommandsTest::arrangements()
{
    QFETCH(QString, clicked);
    QFETCH(QStringList, sent);
    QFETCH(bool, isPulseOff);
    m_rig->panel.trigger().allPointsMode().setChecked(false);
    m_rig->panel.trigger().continuousMode().setChecked(false);
    m_rig->click(clicked);
    for (const bool isContinuous : {false, true}) {
        for (const char* button : {"button_Sweep", "button_List"}) {
            m_rig->pulse.setChecked(true);
            m_rig->panel.trigger().continuousMode().setChecked(isContinuous);
            m_rig->sent();
            m_rig->click(button);
            const QStringList all = m_rig->sent();
            const int end = static_cast<int>(
                all.indexOf(QRegularExpression(isContinuous ? "INIT:CONT ON!" : "INIT:CONT OFF!")));
            QCOMPARE(all.mid(end - sent.size(), sent.size()), sent);
            QVERIFY(all.at(end - sent.size() - 1).contains("DWEL"));
            QVERIFY(all.at(end + 1).startsWith("FREQ:MODE"));
            QCOMPARE(m_rig->pulse.isChecked(), !isPulseOff);
            m_rig->click(button);
        }
    }
}

void TriggerCommandsTest::sweepStepsByHand()
{
    m_rig->click("time_select");
    run("button_Sweep");
    QCOMPARE(m_rig->whereItIs(), QString("1 WAIT 10000000 -4"));
    m_rig->click("right_select right_select");
    QCOMPARE(m_rig->sent(), QStringList({up, up}));
    QCOMPARE(m_rig->whereItIs(), QString("3 WAIT 30000000 -4"));
    m_rig->click("left_select");
    QCOMPARE(m_rig->sent(), QStringList(down));
    QCOMPARE(m_rig->whereItIs(), QString("2 WAIT 20000000 -4"));
    QCOMPARE(m_rig->events, QStringList({"1", "refresh", "1", "refresh", "-1", "refresh"}));
    // The next run is prepared again.
    m_rig->click("button_Sweep");
    m_rig->sent();
    m_rig->click("button_Sweep");
    QVERIFY(m_rig->sent().contains(manual.first()));
}

void TriggerCommandsTest::stepTakesAFreeSweepOver()
{
    run("button_Sweep");
    m_rig->demo("clock 1500");
    m_rig->click("right_select right_select");
    QCOMPARE(m_rig->sent(), manual + QStringList({up, up}));
    QCOMPARE(m_rig->whereItIs(), QString("4 WAIT 40000000 -4"));
    QCOMPARE(m_rig->panel.trigger().choice(), TriggerChoice::Manual);
}

void TriggerCommandsTest::listGoesToThePointChosen()
{
    m_rig->panel.trigger().allPointsMode().setChecked(false);
    run("button_List");
    emit m_rig->panel.pointChosen(2);
    QCOMPARE(m_rig->sent(), QStringList());
    m_rig->click("time_select");
    QCOMPARE(m_rig->sent(), manual);
    emit m_rig->panel.pointChosen(3);
    QCOMPARE(m_rig->sent(), QStringList("LIST:MAN 3!"));
    QCOMPARE(m_rig->whereItIs(), QString("3 WAIT 3000000 -3"));
    m_rig->panel.trigger().allPointsMode().setChecked(true);
    emit m_rig->panel.pointChosen(2);
    QCOMPARE(m_rig->sent(), QStringList("LIST:MODE AUTO!") + manual + QStringList("LIST:MAN 2!"));
    QCOMPARE(m_rig->whereItIs(), QString("2 WAIT 2000000 -2"));
    // From one whose name says no direction, too.
    m_rig->triggers.sharedCommand_List_Sweep();
    QCOMPARE(m_rig->sent(), QStringList());
    QCOMPARE(m_rig->events, QStringList({"to 3", "to 2", "refresh"}));
    m_rig->click("button_List");
    m_rig->sent();
    emit m_rig->panel.pointChosen(1);
    m_rig->triggers.dowloadPointList(1);
    QCOMPARE(m_rig->sent(), QStringList());
}

void TriggerCommandsTest::arrowsBesideTheTable()
{
    m_rig->click("ext_select");
    run("button_List");
    m_rig->click("rightButton rightButton leftButton");
    QCOMPARE(m_rig->sent(), manual + QStringList({"LIST:MAN 1!", "LIST:MAN 2!", "LIST:MAN 1!"}));
    QCOMPARE(m_rig->whereItIs(), QString("1 WAIT 1000000 -1"));
    QCOMPARE(m_rig->events, QStringList({"to 1", "to 2", "to 1"}));
    run("button_Sweep");
    m_rig->click("rightButton leftButton");
    QCOMPARE(m_rig->sent(), QStringList({up, down}));
}

void TriggerCommandsTest::edgesStepASweep()
{
    m_rig->panel.trigger().allPointsMode().setChecked(false);
    m_rig->click("ext_select");
    run("button_Sweep");
    m_rig->demo("trigger rising");
    QCOMPARE(m_rig->whereItIs(), QString("0 WAIT 1000000000 -4"));
    m_rig->demo("trigger falling");
    m_rig->demo("trigger falling");
    QCOMPARE(m_rig->whereItIs(), QString("2 WAIT 20000000 -4"));
}

void TriggerCommandsTest::choicesInARun_data()
{
    testColumns<QString, QStringList>("clicked", "sent");
    testRow("by hand and back", "time_select time_select time_select",
            manual + QStringList("TRIG:SOUR IMM!") + manual);
    testRow("step, edge, step", "right_select int_select right_select",
            manual + QStringList("STEP") + external("POS", "MAN") + manual + QStringList("STEP"));
    testRow("step, all points, step", "right_select modeFront right_select",
            manual + QStringList{"STEP", "LIST:MODE AUTO!"} + manual + QStringList("STEP"));
    testRow("one edge, the other", "int_select ext_select",
            external("POS", "MAN") + external("NEG", "MAN"));
    testRow("repeating", "trigMode trigMode", QStringList{"INIT:CONT ON!", "INIT:CONT OFF!"});
    testRow("all points", "modeFront modeFront", QStringList{"LIST:MODE AUTO!", "LIST:MODE MAN!"});
    testRow("all points by an edge", "modeFront ext_select",
            QStringList("LIST:MODE AUTO!") + external("NEG", "AUTO"));
}

/// The same in a sweep and in a list, except that a list takes no single steps.
void TriggerCommandsTest::choicesInARun()
{
    QFETCH(QString, clicked);
    QFETCH(QStringList, sent);
    m_rig->panel.trigger().allPointsMode().setChecked(false);
    m_rig->panel.trigger().continuousMode().setChecked(false);
    QStringList inASweep = sent;
    inASweep.replaceInStrings("STEP", up);
    QStringList inAList = sent;
    inAList.removeAll("STEP");
    run("button_Sweep");
    m_rig->click(clicked);
    QCOMPARE(m_rig->sent(), inASweep);
    if (m_rig->panel.trigger().choice() != TriggerChoice::FreeRun)
        m_rig->click("time_select");
    m_rig->panel.trigger().allPointsMode().setChecked(false);
    run("button_List");
    m_rig->click(clicked);
    QCOMPARE(m_rig->sent(), inAList);
}

void TriggerCommandsTest::nothingWhileTheTableIsSent()
{
    run("button_List");
    {
        const progressBarForTable bar(3, &m_rig->panel.table());
        m_rig->click("trigMode right_select left_select int_select time_select time_select");
        emit m_rig->panel.pointChosen(1);
        QCOMPARE(m_rig->sent(), QStringList());
        m_rig->click("modeFront");
        QCOMPARE(m_rig->sent().size(), 1);
    }
    m_rig->click("trigMode");
    QCOMPARE(m_rig->sent().size(), 1);
}

/// Such as that of a calibration.
void TriggerCommandsTest::barElsewhereHoldsOnlyTheRepeating()
{
    run("button_Sweep");
    const progressBarForTable bar(3, &m_rig->host);
    m_rig->click("trigMode");
    QCOMPARE(m_rig->sent(), QStringList());
    m_rig->click("right_select");
    QCOMPARE(m_rig->sent(), manual + QStringList(up));
}

void TriggerCommandsTest::nothingWithoutARun_data()
{
    testColumns<bool>("isConnected");
    testRow("connected", true);
    testRow("no instrument", false);
}

void TriggerCommandsTest::nothingWithoutARun()
{
    QFETCH(bool, isConnected);
    if (!isConnected) {
        const QSignalBlocker quiet(m_rig->panel.runSweep());
        m_rig->panel.runSweep().setChecked(true);
        m_rig->session.close();
    }
    m_rig->pulse.setChecked(true);
    m_rig->sent();
    m_rig->click("left_select right_select trigMode modeFront int_select ext_select time_select");
    m_rig->triggers.dowloadPointList(1);
    m_rig->triggers.slotModeIntFront(true);
    m_rig->triggers.setUpContinuousMode();
    QCOMPARE(m_rig->sent(), QStringList());
    QCOMPARE(m_rig->events, QStringList());
    QVERIFY(m_rig->pulse.isChecked());
}

void TriggerCommandsTest::lostConnectionStepsNoFurther()
{
    run("button_Sweep");
    m_rig->demo("fault 3 vanish");
    m_rig->click("right_select");
    QCOMPARE(m_rig->sent(), QStringList({"TRIG:SOUR BUS", "LIST:MODE MAN"}));
    QVERIFY(!m_rig->panel.isRunning());
    QCOMPARE(m_rig->events, QStringList({"stopped", "refresh"}));
}

QTEST_MAIN(TriggerCommandsTest)
#include "trigger_commands_test.moc"
