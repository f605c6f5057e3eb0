#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QTableWidget>

namespace
{
/// Of what is sent, what switches something on or off.
const QRegularExpression
    switching(QStringLiteral("^(AM|FM|PM|PULM|LFO):STAT|ABORt|(POW|FREQ):MODE"));
} // namespace

/// Sweeps and lists, modulations and the LF generator share one source in the instrument: what is
/// switched on ends the other, on the panel and on the wire, and that is said.
class RunExclusionTest : public PanelTest
{
    Q_OBJECT

private slots:
    void exclusions_data()
    {
        testColumns<QString, QString, QString, QString>("before", "clicked", "sent", "status");
        const auto row = [](const QString& before, const QString& clicked, const char* sent,
                            const char* status) {
            testRow(before + ", then " + clicked, before, clicked, sent, status);
        };
        const QString sweep = QStringLiteral("button_Sweep");
        const QString list = QStringLiteral("button_List");
        const char* const sweepOn = "Modulation off: a sweep has started";
        row("AM Pulse", sweep, "AM:STATe OFF, PULM:STATe OFF, FREQ:MODE SWE, POW:MODE FIX",
            sweepOn);
        row("FM", list, "FM:STATe OFF, FREQ:MODE LIST, POW:MODE LIST",
            "Modulation off: a list has started");
        row("triangle_select", sweep, "LFO:STAT OFF, FREQ:MODE SWE, POW:MODE FIX",
            "LF generator off: a sweep has started");
        row("dc_select", list, "LFO:STAT OFF, FREQ:MODE LIST, POW:MODE LIST",
            "LF generator off: a list has started");
        row(sweep, "PM", "ABORt, FREQ:MODE FIX, POW:MODE FIX, PM:STATe ON",
            "Sweep stopped: a modulation is on");
        row(list, "AM", "*ABORt, FREQ:MODE FIX, POW:MODE FIX, AM:STATe ON",
            "List stopped: a modulation is on");
        row(sweep, "Pulse", "PULM:STATe ON, ABORt, FREQ:MODE FIX, POW:MODE FIX",
            "Sweep stopped: a modulation is on");
        row(list, "sine_select", "LFO:STAT ON, *ABORt, FREQ:MODE FIX, POW:MODE FIX",
            "List stopped: the LF generator is on");
        row("Pulse", "sine_select", "", "Modulation off: the LF generator is on");
        row("sine_select", "FM", "", "LF generator off: a modulation is on");
        row(sweep, list, "", "Sweep stopped: a list has started");
        row("button_Sweep Pulse", sweep, "", sweepOn);
    }

    void exclusions()
    {
        QFETCH(QString, before);
        QFETCH(QString, clicked);
        QFETCH(QString, sent);
        begin();
        m_rig->get<QTableWidget>("table_List").setRowCount(3);
        if ((before + clicked).contains("button_List"))
            m_rig->clickAll("List_is_Checked");
        m_rig->connectDevice();
        m_rig->clickAll(before);
        m_demo->takeSent();
        m_rig->clickAll(clicked);
        QTEST(m_rig->status(), "status");
        const QStringList switched = m_demo->takeCommands().filter(switching);
        if (!sent.isEmpty())
            QCOMPARE(switched.join(", ").remove('!'), sent);
        for (const QString& name : before.split(' '))
            QCOMPARE(m_rig->isChecked(qPrintable(name)), name == clicked);
        QVERIFY(m_rig->isChecked(qPrintable(clicked)));
        const bool isRun = clicked.startsWith("button_");
        for (const char* field : {"FREQ", "POW", "key_FREQ", "key_POW"})
            QCOMPARE(m_rig->get(field).isEnabled(), !isRun);
    }
};

QTEST_MAIN(RunExclusionTest)
#include "run_exclusion_test.moc"
