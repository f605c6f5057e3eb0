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
/// switched on ends the other, on the panel and on the wire.
class RunExclusionTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init();

    void exclusions_data();
    void exclusions();

private:
    QPushButton& button(const QString& name) { return m_rig->get<QPushButton>(qPrintable(name)); }
    QString checkedOf(const QString& names);
};

void RunExclusionTest::init()
{
    PanelTest::init();
    m_rig = std::make_unique<PanelRig>();
    m_rig->get<QTableWidget>("table_List").setRowCount(3);
}

QString RunExclusionTest::checkedOf(const QString& names)
{
    QStringList checked;
    for (const QString& name : names.split(' ')) {
        if (button(name).isChecked())
            checked << name;
    }
    return checked.join(' ');
}

void RunExclusionTest::exclusions_data()
{
    testColumns<QString, QString, QString>("before", "clicked", "sent");
    const auto row = [](const QString& before, const QString& clicked, const char* sent) {
        QTest::addRow("%s, then %s", qPrintable(before), qPrintable(clicked))
            << before << clicked << sent;
    };
    const QString sweep = QStringLiteral("button_Sweep");
    const QString list = QStringLiteral("button_List");
    row("AM Pulse", sweep, "AM:STATe OFF, PULM:STATe OFF, FREQ:MODE SWE, POW:MODE FIX");
    row("FM", list, "FM:STATe OFF, FREQ:MODE LIST, POW:MODE LIST");
    row("triangle_select", sweep, "LFO:STAT OFF, FREQ:MODE SWE, POW:MODE FIX");
    row("dc_select", list, "LFO:STAT OFF, FREQ:MODE LIST, POW:MODE LIST");
    row(sweep, "PM", "ABORt, FREQ:MODE FIX, POW:MODE FIX, PM:STATe ON");
    row(list, "AM", "*ABORt, FREQ:MODE FIX, POW:MODE FIX, AM:STATe ON");
    row(sweep, "Pulse", "PULM:STATe ON, ABORt, FREQ:MODE FIX, POW:MODE FIX");
    row(list, "sine_select", "LFO:STAT ON, *ABORt, FREQ:MODE FIX, POW:MODE FIX");
}

void RunExclusionTest::exclusions()
{
    QFETCH(QString, before);
    QFETCH(QString, clicked);
    if ((before + clicked).contains("button_List"))
        button("List_is_Checked").click();
    m_rig->connectDevice();
    for (const QString& name : before.split(' ')) {
        m_rig->openPanelOf(name);
        m_rig->click(qPrintable(name));
    }
    QCOMPARE(checkedOf(before), before);
    m_demo->takeSent();

    m_rig->openPanelOf(clicked);
    m_rig->click(qPrintable(clicked));
    QStringList sent = m_demo->takeSent().filter(switching);
    sent.replaceInStrings("\\n", "");
    QTEST(sent.join(", "), "sent");
    QCOMPARE(checkedOf(before), QString());
    QCOMPARE(checkedOf(clicked), clicked);
    const bool isRun = clicked.startsWith("button_");
    for (const char* field : {"FREQ", "POW", "key_FREQ", "key_POW"})
        QCOMPARE(m_rig->get(field).isEnabled(), !isRun);
}

QTEST_MAIN(RunExclusionTest)
#include "run_exclusion_test.moc"
