#include "tests/support/rows.h"
#include "tests/sweep/sweep_rig.h"
#include "ui/progress_bar_for_table.h"

#include <memory>

namespace
{
const QStringList manual = {"TRIG:SOUR BUS", "LIST:MODE MAN!"};
const QString up = QStringLiteral("LIST:MAN UP!");
const QString down = QStringLiteral("LIST:MAN DOWN!");
const QStringList step = {"STEP"};
const QStringList allPoints = {"LIST:MODE AUTO!"};

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
        m_rig->setSweep({"-4", "10 000 000", "50 000 000", "5", "1 000"});
        m_rig->panel.trigger().allPointsMode().setChecked(false);
        m_rig->panel.trigger().continuousMode().setChecked(false);
    }
    void cleanup() { m_rig.reset(); }

    /// Alike at the start of a sweep and of a list, behind what is run and before the start itself.
    void arrangements()
    {
        const auto row = freshRows(
            this, [this](const QString& clicked, const QStringList& sent, bool isPulseOff) {
                m_rig->click(clicked);
                for (const bool isContinuous : {false, true}) {
                    for (const char* button : {"button_Sweep", "button_List"}) {
                        m_rig->pulse.setChecked(true);
                        m_rig->panel.trigger().continuousMode().setChecked(isContinuous);
                        m_rig->sent();
                        m_rig->click(button);
                        const QStringList all = m_rig->sent();
                        const auto end = static_cast<int>(
                            all.indexOf(isContinuous ? "INIT:CONT ON!" : "INIT:CONT OFF!"));
                        QCOMPARE(all.mid(end - sent.size(), sent.size()), sent);
                        QVERIFY(all.at(end - sent.size() - 1).contains("DWEL"));
                        QVERIFY(all.at(end + 1).startsWith("FREQ:MODE"));
                        QCOMPARE(m_rig->pulse.isChecked(), !isPulseOff);
                        m_rig->click(button);
                    }
                }
            });
        row("free", "", QStringList("TRIG:SOUR IMM!"), false);
        row("rising", "int_select", external("POS", "MAN"), true);
        row("rising, all points", "modeFront int_select", external("POS", "AUTO"), true);
        row("falling", "ext_select", external("NEG", "MAN"), true);
        row("falling, all points", "modeFront ext_select", external("NEG", "AUTO"), true);
        row("by hand", "time_select", manual, false);
        row("by hand, all points", "modeFront time_select", manual, false);
    }

    void movesInARun()
    {
        const auto row = freshRows(this, [this](const QString& before, const QString& acts,
                                                const QStringList& sent, const QString& place,
                                                const QString& events) {
            run(before);
            int column = 0;
            for (const QString& act : acts.split(' ', Qt::SkipEmptyParts)) {
                if (act.startsWith("row="))
                    m_rig->panel.table().setCurrentCell(act.mid(4).toInt() - 1, ++column % 3);
                else if (act.contains('='))
                    m_rig->demo(QString(act).replace('=', ' '));
                else
                    m_rig->click(act);
            }
            QCOMPARE(m_rig->sent(), sent);
            QCOMPARE(m_rig->whereItIs(), place);
            QCOMPARE(m_rig->events.join(' '), events);
        });
        row("start by hand", "time_select button_Sweep", "", QStringList(), "1 WAIT 10000000 -4",
            "");
        row("sweep by hand", "time_select button_Sweep", "right_select right_select left_select",
            QStringList{up, up, down}, "2 WAIT 20000000 -4", "1 refresh 1 refresh -1 refresh");
        row("from a free sweep on", "button_Sweep", "clock=1500 right_select right_select",
            manual + QStringList{up, up}, "4 WAIT 40000000 -4", "1 refresh 1 refresh");
        row("sweep by the arrows of the list", "time_select button_Sweep", "rightButton leftButton",
            QStringList{up, down}, "1 WAIT 10000000 -4", "1 refresh -1 refresh");
        row("sweep by edges", "ext_select button_Sweep",
            "trigger=rising trigger=falling trigger=falling", QStringList(), "2 WAIT 20000000 -4",
            "");
        row("list by rows", "button_List", "row=2 time_select row=3 row=3",
            manual + QStringList("LIST:MAN 3!"), "3 WAIT 3000000 -3", "to 3");
        row("list after all points", "time_select button_List", "row=3 modeFront row=2",
            QStringList("LIST:MAN 3!") + allPoints + manual + QStringList("LIST:MAN 2!"),
            "2 WAIT 2000000 -2", "to 3 to 2");
        row("list by arrows", "ext_select button_List",
            "rightButton rightButton leftButton leftButton row=2 rightButton rightButton",
            manual + QStringList{"LIST:MAN 1!", "LIST:MAN 2!", "LIST:MAN 1!", "LIST:MAN 2!",
                                 "LIST:MAN 3!"},
            "3 WAIT 3000000 -3", "to 1 to 2 to 1 to 2 to 3");
        row("list that has ended", "time_select button_List button_List", "row=1", QStringList(),
            "0 IDLE 1500000000 -7", "");
    }

    /// The same in a sweep and in a list, except that a list takes no single steps.
    void choicesInARun()
    {
        const auto check = [this](const QString& clicked, const QStringList& sent) {
            for (const char* start : {"button_Sweep", "button_List"}) {
                cleanup();
                init();
                run(start);
                m_rig->click(clicked);
                const bool isList = QString(start) == "button_List";
                QStringList expected = sent;
                if (isList)
                    expected.removeAll("STEP");
                expected.replaceInStrings("STEP", up);
                QCOMPARE(m_rig->sent(), expected);
                // What steps a list is said.
                const bool isAmiss = isList && clicked.contains("right_select");
                QCOMPARE(m_rig->fields.said.filter("arrows").size(), isAmiss ? 2 : 0);
            }
        };
        check("time_select time_select time_select",
              manual + QStringList("TRIG:SOUR IMM!") + manual);
        check("right_select int_select right_select",
              manual + step + external("POS", "MAN") + manual + step);
        check("right_select modeFront right_select", manual + step + allPoints + manual + step);
        check("int_select ext_select", external("POS", "MAN") + external("NEG", "MAN"));
        check("trigMode trigMode", {"INIT:CONT ON!", "INIT:CONT OFF!"});
        check("modeFront modeFront", allPoints + QStringList("LIST:MODE MAN!"));
        check("modeFront ext_select", allPoints + external("NEG", "AUTO"));
    }

    void nothingWhileTheTableIsSent()
    {
        run("button_List");
        {
            const progressBarForTable bar(3, &m_rig->panel.table());
            m_rig->click("trigMode right_select left_select int_select time_select time_select");
            m_rig->click("rightButton");
            m_rig->panel.table().setCurrentCell(2, 0);
            QCOMPARE(m_rig->sent(), QStringList());
            m_rig->click("modeFront");
            QCOMPARE(m_rig->sent().size(), 1);
        }
        m_rig->click("trigMode");
        QCOMPARE(m_rig->sent().size(), 1);
    }

    /// Such as that of a calibration.
    void barElsewhereHoldsOnlyTheRepeating()
    {
        run("button_Sweep");
        const progressBarForTable bar(3, &m_rig->host);
        m_rig->click("trigMode right_select");
        QCOMPARE(m_rig->sent(), manual + QStringList(up));
    }

    void nothingWithoutARun()
    {
        m_rig->pulse.setChecked(true);
        for (const bool isConnected : {true, false}) {
            if (!isConnected) {
                const QSignalBlocker quiet(m_rig->panel.runSweep());
                m_rig->panel.runSweep().setChecked(true);
                m_rig->session.close();
            }
            m_rig->sent();
            m_rig->click(
                "left_select right_select trigMode modeFront int_select ext_select time_select");
            m_rig->triggers.dowloadPointList(1);
            QCOMPARE(m_rig->sent(), QStringList());
            QCOMPARE(m_rig->events, QStringList());
            QVERIFY(m_rig->pulse.isChecked());
        }
    }

    void lostConnectionStepsNoFurther()
    {
        run("button_Sweep");
        m_rig->demo("fault 3 vanish");
        m_rig->click("right_select");
        QCOMPARE(m_rig->sent(), QStringList({"TRIG:SOUR BUS", "LIST:MODE MAN"}));
        QVERIFY(!m_rig->panel.isRunning());
        QCOMPARE(m_rig->events, QStringList({"stopped", "refresh"}));
    }

private:
    /// Starts a run and forgets what that has sent and announced.
    void run(const QString& clicks)
    {
        m_rig->click(clicks);
        m_rig->sent();
        m_rig->events.clear();
    }

    std::unique_ptr<SweepRig> m_rig;
};

QTEST_MAIN(TriggerCommandsTest)
#include "trigger_commands_test.moc"
