#include "link/instrument_limits.h"
#include "tests/support/panel_rig.h"

#include "ui/error_box.h"

namespace
{
/// An I/O error; nothing reaches the wire.
const QString nextCallFails = QStringLiteral("fault 1 status 0xBFFF003E");
} // namespace

/// The RF output and the instrument it belongs to: it does not outlive it, nothing comes on with
/// the next one, and what could not be switched off is not shown as off.
class OutputLifeTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_rig.reset(); }

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

    std::unique_ptr<Demo> m_demo;
    std::unique_ptr<PanelRig> m_rig;
};

void OutputLifeTest::init()
{
    m_demo = std::make_unique<Demo>();
    QSettings(QStringLiteral("Veltro"), QStringLiteral("KLV")).clear();
    StartOptions options = PanelRig::defaultOptions();
    options.isClean = true;
    m_rig = std::make_unique<PanelRig>(options);
}

void OutputLifeTest::endsWithTheConnection_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("clicked");
    QTest::addColumn<bool>("isRefused");
    QTest::newRow("by hand") << ""
                             << "connect" << false;
    QTest::newRow("by the cable") << "unplug"
                                  << "ROSC" << false;
    QTest::newRow("by a failure") << "fault 2 status 0xBFFF0015"
                                  << "ROSC" << false;
    QTest::newRow("refused") << "reply *IDN? -> Veltro"
                             << "" << true;
    QTest::newRow("too old") << "instruments [1111]\nfirmware=2.3.9"
                             << "" << true;
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
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("unset");
    QTest::newRow("nothing found") << "unplug"
                                   << "plug";
    QTest::newRow("not opened") << nextCallFails << "";
    QTest::newRow("left its mass-storage mode") << "reply MEM:MSC? -> ON"
                                                << "reply MEM:MSC? -> OFF";
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
    QTest::addColumn<QString>("button");
    for (const char* button :
         {"Output", "connect", "AM", "PM", "Pulse", "sine_select", "button_Sweep"})
        QTest::newRow(button) << QString(button);
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
    QTest::addColumn<bool>("isOnBefore");
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<bool>("isOn");
    QTest::newRow("click on") << false << false << true;
    QTest::newRow("click off") << true << false << false;
    QTest::newRow("key, on") << true << true << false;
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
