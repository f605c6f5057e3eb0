#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QLineEdit>
#include <QTableWidget>

namespace
{
/// Of what is sent, what switches something on or off.
const QRegularExpression
    switching(QStringLiteral("^(AM|FM|PM|PULM|LFO):STAT|ABORt|(POW|FREQ):MODE"));
} // namespace

/// What the window says of a run, of what the instrument refuses, and of what excludes each other:
/// sweeps and lists, modulations and the LF generator share one source in the instrument.
class RunsTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        begin();
        // A sweep of 5 points and a list of 3 that stand at their first point for long.
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

    /// With the panel closed too: Stop in the window is the run button's own.
    void aRunIsSeenEverywhere()
    {
        const auto row = freshRows(
            this, [this](const QString& clicks, const QString& run, const QString& display) {
                const QString rest = "- grey |  | - | -";
                QCOMPARE(shown(), rest);
                QVERIFY(!m_rig->get("stop_run").isVisible());
                m_rig->clickAll(clicks + ' ' + run);
                QCOMPARE(shown(), display);
                QCOMPARE(m_rig->get("unit_FREQ").isVisible(), !display.contains("by trigger"));
                QCOMPARE(m_rig->text(qPrintable(run)), QString("Stop"));
                // What the run returns to stays what it was.
                QCOMPARE(m_rig->text("FREQ"), QString("2 351 000 000"));
                QCOMPARE(m_rig->text("POW"), QString("-7"));
                m_demo->takeSent();
                m_rig->clickAll(run);
                const QStringList stopped = m_demo->takeSent();
                QCOMPARE(shown(), rest);

                m_rig->clickAll(run);
                m_demo->takeSent();
                QVERIFY(!m_rig->get("List").isVisible());
                m_rig->click("stop_run");
                QCOMPARE(m_demo->takeSent(), stopped);
                QCOMPARE(m_rig->text(qPrintable(run)), QString("Run"));
                QVERIFY(!m_rig->get("stop_run").isVisible());
                QCOMPARE(shown(), rest);
                // A run that loses its instrument leaves nothing behind.
                m_rig->clickAll(run);
                (*m_demo)("unplug");
                m_rig->clickAll("trigMode");
                QVERIFY(!m_rig->isConnected());
                QCOMPARE(shown(), rest);
                QVERIFY(!m_rig->get("stop_run").isVisible());
            });
        const QString sweep = "button_Sweep";
        const QString list = "button_List";
        row("sweep", "", sweep, "SWEEP | Point 1 of 5 | 10 000 000 | -4");
        row("power sweep", "power_toFrom_freq", sweep,
            "SWEEP | Point 1 of 5 | 1 000 000 000 | -10");
        row("list", "List_is_Checked", list, "LIST | Point 1 of 3 | 1 000 000 | -1");
        row("sweep by trigger", "int_select", sweep,
            "SWEEP | by trigger, points: 5 | by trigger | -4");
        row("sweep by hand", "time_select", sweep, "SWEEP | Point 1 of 5 | 10 000 000 | -4");
        row("list by hand", "List_is_Checked time_select", list,
            "LIST | waits for a step, points: 3 | - | -");
    }

    void aSinglePassEnds()
    {
        set("Time", "1 000");
        m_rig->clickAll("button_Sweep");
        QTRY_COMPARE(shown(), QString("SWEEP grey | Point 5 of 5 | 50 000 000 | -4"));
        QCOMPARE(m_rig->status(), QString("Pass finished: Stop returns to 2 351 000 000 Hz"));
        QVERIFY(m_rig->get("stop_run").isVisible());
        // As the instrument, which takes no step then, the display stays where it is.
        m_rig->clickAll("right_select");
        QCOMPARE((*m_demo)("ask TRIG:STAT?"), QString("IDLE"));
        QCOMPARE(m_rig->status(), QString("-221, Settings conflict after LIST:MAN UP"));
        QCOMPARE(shown(), QString("SWEEP grey | Point 5 of 5 | 50 000 000 | -4"));
        // To be repeated, it begins anew in both.
        m_rig->clickAll("time_select trigMode");
        QVERIFY(m_rig->get("label_Run").isEnabled());
        QCOMPARE((*m_demo)("ask TRIG:STAT?"), QString("RUN"));
        // What a stop would do is said no longer than it can be done.
        m_rig->clickAll("trigMode");
        QTRY_VERIFY(m_rig->status().startsWith("Pass finished"));
        m_rig->get("stop_run").setFocus();
        QTest::keyClick(&m_rig->get("stop_run"), Qt::Key_Space);
        QCOMPARE(m_rig->status(), QString());
        QCOMPARE(m_rig->window().focusWidget(), &m_rig->get("FREQ"));
    }

    void refusedStepsMoveNothing()
    {
        const auto row =
            freshRows(this, [this](const QString& run, const QString& step, const QString& command,
                                   const QString& before, const QString& after) {
                m_rig->clickAll(run);
                m_demo->takeSent();
                (*m_demo)("error -222");
                m_rig->clickAll(step);
                QCOMPARE(m_demo->takeSent().filter("LIST:MAN").size(), 1);
                QCOMPARE(shown(), before);
                QCOMPARE(m_rig->status(), "-222, Data out of range after " + command);
                QCoreApplication::processEvents();
                m_rig->clickAll(step);
                QCOMPARE(shown(), after);
            });
        row("sweep", "time_select button_Sweep", "right_select", "LIST:MAN UP",
            "SWEEP | Point 1 of 5 | 10 000 000 | -4", "SWEEP | Point 2 of 5 | 20 000 000 | -4");
        row("list", "List_is_Checked time_select button_List rightButton", "rightButton",
            "LIST:MAN 2", "LIST | Point 1 of 3 | 1 000 000 | -1",
            "LIST | Point 2 of 3 | 2 000 000 | -2");
    }

    void refusedSetUpIsStopped()
    {
        const auto row = freshRows(this, [this](const QString& clicks, const QString& status,
                                                const QString& stopped) {
            m_rig->get<QLineEdit>("Start").setText("99 000 000 000");
            fillList({"99 000 000 000;0;1 000"});
            {
                auto& table = m_rig->get<QTableWidget>("table_List");
                const QSignalBlocker unbounded(table);
                table.item(0, 0)->setText("99 000 000 000");
            }
            m_rig->clickAll(clicks);
            QCOMPARE(m_rig->status(), status);
            const QStringList sent = m_demo->takeSent();
            QVERIFY2(sent.filter("INIT:IMM").isEmpty(), qPrintable(sent.join('\n')));
            QCOMPARE(sent.filter(QRegularExpression("^\\*?ABORt")), QStringList(stopped + "\\n"));
            QVERIFY(!m_rig->get("stop_run").isVisible());
            QCOMPARE(m_rig->text("errors"), QString("1 error"));
        });
        row("sweep", "button_Sweep",
            "The sweep does not run: -222, Data out of range after FREQ:START "
            "99000000000",
            "ABORt");
        row("list", "List_is_Checked button_List",
            "The list does not run: -222, Data out of range after LIST:FREQ "
            "99 000 000 000Hz",
            "*ABORt");
    }

    void errorsAreCounted()
    {
        QVERIFY(!m_rig->get("errors").isVisible());
        (*m_demo)("error -310 <b>" + QString(5000, 'x'));
        set("FREQ", "5 000 000");
        QCOMPARE(m_rig->text("errors"), QString("1 error"));
        QCOMPARE(m_rig->status().size(), 200);
        QVERIFY(m_rig->status().startsWith("-310, <b>xxx"));
        QVERIFY(m_rig->status().endsWith(" after FREQ 5000000.000000 Hz;FREQ?"));
        // The two conditions that have lamps of their own are none.
        for (const char* code : {"-113", "328", "329", "-222", "-350"})
            (*m_demo)(QString("error ") + code);
        m_rig->clickAll("Output");
        QCOMPARE(m_rig->text("errors"), QString("4 errors"));
        QCOMPARE(m_rig->status(), QString("-350, Queue overflow after OUTPut ON"));
        m_rig->choose("ru");
        QCOMPARE(m_rig->text("errors"), QString::fromUtf8("4 ошибки"));
        m_rig->click("errors");
        QVERIFY(!m_rig->get("errors").isVisible());
        (*m_demo)("error -113");
        m_rig->clickAll("Output");
        QCOMPARE(m_rig->text("errors"), QString::fromUtf8("1 ошибка"));
        // The key that clears the count while a run goes on is the RF output's no sooner than
        // wanted.
        m_rig->clickAll("button_Sweep");
        m_rig->get("errors").setFocus();
        for (int press = 0; press < 2; ++press)
            QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_Space);
        QVERIFY(!m_rig->get("errors").isVisible());
        QVERIFY(!m_rig->isChecked("Output"));
    }

    void anotherInstrumentBounds()
    {
        m_rig->click("connect");
        set("Stop", "5 500 000 000");
        fillList({"5 500 000 000;0;1 000", ";15;", "1 000 000;-5;1 000"});
        (*m_demo)("instruments [1111]\nmodel=KLV-6G\nfrequencyMaxHz=5000000000\npowerMaxDbm=10\n");
        m_rig->connectDevice();
        QCOMPARE(
            m_rig->status(),
            QString("3 values of sweep and list were bounded by the limits of the instrument"));
        QCOMPARE(m_rig->text("Stop"), QString("5 000 000 000"));
        QStringList cells;
        for (const auto& [row, column] : {std::pair(0, 0), {1, 0}, {1, 1}, {2, 1}})
            cells << m_rig->get<QTableWidget>("table_List").item(row, column)->text();
        QCOMPARE(cells, QStringList({"5 000 000 000", "", "10", "-5"}));
    }

    void exclusions()
    {
        const auto check = [this](const QString& before, const QString& clicked, const char* sent,
                                  const char* status) {
            cleanup();
            init();
            if ((before + clicked).contains("button_List"))
                m_rig->clickAll("List_is_Checked");
            m_rig->clickAll(before);
            m_demo->takeSent();
            m_rig->clickAll(clicked);
            QCOMPARE(m_rig->status(), QString(status));
            const QStringList switched = m_demo->takeCommands().filter(switching);
            if (*sent)
                QCOMPARE(switched.join(", ").remove('!'), QString(sent));
            for (const QString& name : before.split(' '))
                QCOMPARE(m_rig->isChecked(qPrintable(name)), name == clicked);
            QVERIFY(m_rig->isChecked(qPrintable(clicked)));
            const bool isRun = clicked.startsWith("button_");
            for (const char* field : {"FREQ", "POW", "key_FREQ", "unit_POW"})
                QCOMPARE(m_rig->get(field).isEnabled(), !isRun);
        };
        const QString sweep = QStringLiteral("button_Sweep");
        const QString list = QStringLiteral("button_List");
        const char* const sweepOn = "Modulation off: a sweep has started";
        check("AM Pulse", sweep, "AM:STATe OFF, PULM:STATe OFF, FREQ:MODE SWE, POW:MODE FIX",
              sweepOn);
        check("FM", list, "FM:STATe OFF, FREQ:MODE LIST, POW:MODE LIST",
              "Modulation off: a list has started");
        check("triangle_select", sweep, "LFO:STAT OFF, FREQ:MODE SWE, POW:MODE FIX",
              "LF generator off: a sweep has started");
        check("dc_select", list, "LFO:STAT OFF, FREQ:MODE LIST, POW:MODE LIST",
              "LF generator off: a list has started");
        check(sweep, "PM", "ABORt, FREQ:MODE FIX, POW:MODE FIX, PM:STATe ON",
              "Sweep stopped: a modulation is on");
        check(list, "AM", "*ABORt, FREQ:MODE FIX, POW:MODE FIX, AM:STATe ON",
              "List stopped: a modulation is on");
        check(sweep, "Pulse", "PULM:STATe ON, ABORt, FREQ:MODE FIX, POW:MODE FIX",
              "Sweep stopped: a modulation is on");
        check(list, "sine_select", "LFO:STAT ON, *ABORt, FREQ:MODE FIX, POW:MODE FIX",
              "List stopped: the LF generator is on");
        check("Pulse", "sine_select", "", "Modulation off: the LF generator is on");
        check("sine_select", "FM", "", "LF generator off: a modulation is on");
        check(sweep, list, "", "Sweep stopped: a list has started");
        check("button_Sweep Pulse", sweep, "", sweepOn);
    }

private:
    void set(const char* name, const QString& value)
    {
        auto& field = m_rig->get<QLineEdit>(name);
        field.setText(value);
        emit field.editingFinished();
    }

    void fillList(const QStringList& rows)
    {
        auto& table = m_rig->get<QTableWidget>("table_List");
        table.setRowCount(rows.size());
        for (int row = 0; row < rows.size(); ++row) {
            const QStringList cells = rows.at(row).split(';');
            for (int column = 0; column < cells.size(); ++column)
                table.setItem(row, column, new QTableWidgetItem(cells.at(column)));
        }
    }

    /// What the display shows of a run: lamp, point and figures.
    QString shown()
    {
        const auto of = [this](const char* name) {
            return m_rig->get(name).isVisible() ? m_rig->text(name) : QStringLiteral("-");
        };
        const QString lamp = m_rig->get("label_Run").isEnabled() ? "" : " grey";
        return QStringList{of("label_Run") + lamp, of("run_point"), of("run_FREQ"), of("run_POW")}
            .join(" | ");
    }
};

QTEST_MAIN(RunsTest)
#include "runs_test.moc"
