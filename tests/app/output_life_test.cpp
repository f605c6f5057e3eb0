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
    void init()
    {
        PanelTest::init();
        begin();
    }

    void endsWithTheConnection_data()
    {
        testColumns<QString, QString>("set", "clicked");
        testRow("by hand", "", "connect");
        testRow("by the cable", "unplug", "ROSC");
        testRow("by a failure", "fault 2 status 0xBFFF0015", "ROSC");
        testRow("refused", "reply *IDN? -> Veltro", "");
        testRow("too old", "instruments [1111]\nfirmware=2.3.9", "");
    }

    void endsWithTheConnection()
    {
        QFETCH(QString, set);
        QFETCH(QString, clicked);
        if (clicked.isEmpty()) {
            (*m_demo)(set);
            m_rig->click("Output");
            m_rig->connectDevice();
        } else {
            m_rig->connectDevice();
            m_rig->click("Output");
            QVERIFY(isLit());
            if (!set.isEmpty())
                (*m_demo)(set);
            m_rig->clickAll(clicked);
        }
        QVERIFY(!m_rig->isConnected());
        QVERIFY(!m_rig->isChecked("Output"));
        QVERIFY(!isLit());
        if (auto* box = m_rig->window().findChild<ErrorBox*>())
            box->close();
        // Silently: what was sent switches nothing, and the next one stays off.
        (*m_demo)("reset");
        (*m_demo)("timeouts immediate");
        connectAgain(false);
    }

    void outlivesAnAttempt_data()
    {
        testColumns<QString, QString>("set", "unset");
        testRow("nothing found", "unplug", "plug");
        testRow("not opened", nextCallFails, "plug");
        testRow("left its mass-storage mode", "reply MEM:MSC? -> ON", "reply MEM:MSC? -> OFF");
    }

    /// A hand has asked for it, and no instrument has been there to be switched.
    void outlivesAnAttempt()
    {
        QFETCH(QString, set);
        QFETCH(QString, unset);
        m_rig->click("Output");
        (*m_demo)(set);
        m_rig->connectDevice();
        QVERIFY(!m_rig->isConnected());
        QVERIFY(m_rig->isChecked("Output"));
        QVERIFY(!isLit());
        (*m_demo)(unset);
        connectAgain(true);
    }

    void aLostSwitchOffIsALoss_data()
    {
        testNames("button",
                  {"Output", "connect", "AM", "PM", "Pulse", "sine_select", "button_Sweep"});
    }

    void aLostSwitchOffIsALoss()
    {
        QFETCH(QString, button);
        m_rig->connectDevice();
        if (button != "connect") {
            m_rig->clickAll(button);
            QTRY_VERIFY(Activities::global().texts().isEmpty());
        }
        (*m_demo)(nextCallFails);
        m_rig->clickAll(button);
        QTRY_VERIFY(!m_rig->isConnected());
        QCOMPARE(m_rig->status(), QString("connection error: RF may still be on"));
        QCOMPARE(m_rig->device(), QString("Disconnected"));
        QVERIFY(!m_rig->isChecked("Output"));
        QVERIFY(!isLit());
    }

    void withoutAnInstrument_data()
    {
        testColumns<bool, bool, bool>("isOnBefore", "byKey", "isOn");
        testRow("click on", false, false, true);
        testRow("click off", true, false, false);
        testRow("key, on", true, true, false);
        // Pressed in haste, when a loss has just let the button go.
        testRow("key, off", false, true, false);
    }

    void withoutAnInstrument()
    {
        QFETCH(bool, isOnBefore);
        QFETCH(bool, byKey);
        QFETCH(bool, isOn);
        if (isOnBefore)
            m_rig->click("Output");
        if (byKey)
            QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_R, Qt::ControlModifier);
        else
            m_rig->click("Output");
        QCOMPARE(m_rig->isChecked("Output"), isOn);
        QVERIFY(!isLit());
        QVERIFY2(m_rig->status().startsWith("No instrument is connected"),
                 qPrintable(m_rig->status()));
        // That is not true any more, and not said again.
        connectAgain(isOn);
        QCOMPARE(m_rig->status(), QString());
    }

private:
    bool isLit() { return m_rig->get("label_RF").isEnabled(); }

    void connectAgain(bool isOn)
    {
        m_demo->takeTranscript();
        m_rig->connectDevice();
        QVERIFY(m_rig->isConnected());
        QCOMPARE(m_demo->takeCommands().filter("OUTPut"),
                 QStringList(isOn ? "OUTPut ON!" : "OUTPut OFF!"));
        QCOMPARE(isLit(), isOn);
    }
};

QTEST_MAIN(OutputLifeTest)
#include "output_life_test.moc"
