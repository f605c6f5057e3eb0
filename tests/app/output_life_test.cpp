#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"

#include "tests/support/rows.h"
#include "ui/error_box.h"

namespace
{
/// An I/O error; nothing reaches the wire.
const QString nextCallFails = QStringLiteral("fault 1 status 0xBFFF003E");
} // namespace

/// The RF output and the instrument it belongs to: it does not outlive it, nothing comes on with
/// the next one, and what could not be switched off is not shown as off.
class OutputLifeTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init();

    void endsWithTheConnection_data();
    void endsWithTheConnection();
    void outlivesAnAttempt_data();
    void outlivesAnAttempt();
    void aLostSwitchOffIsALoss_data();
    void aLostSwitchOffIsALoss();
    void withoutAnInstrument_data();
    void withoutAnInstrument();

private:
    QPushButton& output() { return m_rig->get<QPushButton>("Output"); }
    bool isLit() { return m_rig->get("label_RF").isEnabled(); }
    void press(const char* name) { m_rig->get<QAbstractButton>(name).click(); }
};

void OutputLifeTest::init()
{
    PanelTest::init();
    StartOptions options = PanelRig::defaultOptions();
    options.isClean = true;
    m_rig = std::make_unique<PanelRig>(options);
}

void OutputLifeTest::endsWithTheConnection_data()
{
    testColumns<QString, QString, bool>("set", "clicked", "isRefused");
    testRow("by hand", "", "connect", false);
    testRow("by the cable", "unplug", "ROSC", false);
    testRow("by a failure", "fault 2 status 0xBFFF0015", "ROSC", false);
    testRow("refused", "reply *IDN? -> Veltro", "", true);
    testRow("too old", "instruments [1111]\nfirmware=2.3.9", "", true);
}

void OutputLifeTest::endsWithTheConnection()
{
    QFETCH(QString, set);
    QFETCH(QString, clicked);
    QFETCH(bool, isRefused);
    if (isRefused) {
        (*m_demo)(set);
        press("Output");
        m_rig->connectDevice();
    } else {
        m_rig->connectDevice();
        press("Output");
        QVERIFY(isLit());
        if (!set.isEmpty())
            (*m_demo)(set);
        press(qPrintable(clicked));
    }
    QVERIFY(!m_rig->isConnected());
    QVERIFY(!output().isChecked());
    QVERIFY(!isLit());
    if (auto* box = m_rig->window().findChild<ErrorBox*>())
        box->close();
    // Silently: what was sent switches nothing, and the next one stays off.
    (*m_demo)(QStringLiteral("reset"));
    (*m_demo)(QStringLiteral("timeouts immediate"));
    m_demo->takeTranscript();
    m_rig->connectDevice();
    QVERIFY(m_rig->isConnected());
    QCOMPARE(m_demo->takeSent().filter("OUTPut"), QStringList("OUTPut OFF\\n"));
    QVERIFY(!isLit());
}

void OutputLifeTest::outlivesAnAttempt_data()
{
    testColumns<QString, QString>("set", "unset");
    testRow("nothing found", "unplug", "plug");
    testRow("not opened", nextCallFails, "");
    testRow("left its mass-storage mode", "reply MEM:MSC? -> ON", "reply MEM:MSC? -> OFF");
}

/// A hand has asked for it, and no instrument has been there to be switched.
void OutputLifeTest::outlivesAnAttempt()
{
    QFETCH(QString, set);
    QFETCH(QString, unset);
    press("Output");
    QVERIFY(!isLit());
    (*m_demo)(set);
    m_rig->connectDevice();
    QVERIFY(!m_rig->isConnected());
    QVERIFY(output().isChecked());
    QVERIFY(!isLit());
    if (!unset.isEmpty())
        (*m_demo)(unset);
    m_demo->takeTranscript();
    m_rig->connectDevice();
    QCOMPARE(m_demo->takeSent().filter("OUTPut"), QStringList("OUTPut ON\\n"));
    QVERIFY(isLit());
}

void OutputLifeTest::aLostSwitchOffIsALoss_data()
{
    testColumns<QString>("button");
    for (const char* button :
         {"Output", "connect", "AM", "PM", "Pulse", "sine_select", "button_Sweep"})
        testRow(button, QString(button));
}

void OutputLifeTest::aLostSwitchOffIsALoss()
{
    QFETCH(QString, button);
    m_rig->connectDevice();
    if (button == "Output")
        press("Output");
    if (button != "Output" && button != "connect") {
        press(qPrintable(button));
        QTRY_VERIFY(Activities::global().texts().isEmpty());
    }
    (*m_demo)(nextCallFails);
    press(qPrintable(button));
    QTRY_VERIFY(!m_rig->isConnected());
    QCOMPARE(m_rig->status(), QString("connection error: RF may still be on"));
    QCOMPARE(m_rig->device(), QString("Disconnected"));
    QVERIFY(!output().isChecked());
    QVERIFY(!isLit());
}

void OutputLifeTest::withoutAnInstrument_data()
{
    testColumns<bool, bool, bool>("isOnBefore", "byKey", "isOn");
    testRow("click on", false, false, true);
    testRow("click off", true, false, false);
    testRow("key, on", true, true, false);
    // Pressed in haste, when a loss has just let the button go.
    QTest::newRow("key, off") << false << true << false;
}

void OutputLifeTest::withoutAnInstrument()
{
    QFETCH(bool, isOnBefore);
    QFETCH(bool, byKey);
    QFETCH(bool, isOn);
    if (isOnBefore)
        press("Output");
    if (byKey)
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_R, Qt::ControlModifier);
    else
        press("Output");
    QCOMPARE(output().isChecked(), isOn);
    QVERIFY(!isLit());
    QVERIFY2(m_rig->status().startsWith("No instrument is connected"), qPrintable(m_rig->status()));
    // That is not true any more, and not said again.
    m_rig->connectDevice();
    QCOMPARE(m_rig->status(), QString());
    QCOMPARE(isLit(), isOn);
}

QTEST_MAIN(OutputLifeTest)
#include "output_life_test.moc"
