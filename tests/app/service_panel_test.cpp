#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QTableWidget>

/// The service panel in its window: what happens to the window while it works.
class ServicePanelTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        beginConnected();
    }

    void aClosedPanelEndsWriting_data() { testNames("button", {"service", "open_mod"}); }

    void aClosedPanelEndsWriting()
    {
        QFETCH(QString, button);
        const QString firstRow = "MEM:TABLE:ADD 1000000000 -4";
        openPanel();
        whenSent(m_rig->window(), *m_demo, firstRow, [&] { m_rig->click(qPrintable(button)); });
        m_rig->click("applyCalibrate");
        QCOMPARE(m_demo->takeCommands(), QStringList(firstRow));
        QCOMPARE(m_rig->text("applyCalibrate"), QString("Write"));
        QVERIFY(m_rig->get("table").isEnabledTo(&m_rig->window()));
        QVERIFY(!m_rig->window().findChild<QWidget*>("progressBarForTable"));
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void temperatureIsPolledWhileOpen()
    {
        auto* connection = m_rig->window().findChild<Connection*>();
        emit connection->pollDue();
        QCOMPARE(m_demo->takeSent(), QStringList());
        openPanel();
        emit connection->pollDue();
        QCOMPARE(m_demo->takeCommands(), QStringList("TEMP?"));
        (*m_demo)("reply TEMP? ->");
        const QString shown = m_rig->text("text_temp");
        emit connection->pollDue();
        QCOMPARE(m_rig->status(), QString("error getting temperature"));
        QCOMPARE(m_rig->text("text_temp"), shown);
    }

    /// And another instrument is never given its table.
    void anInstrumentFillsAnOpenPanel()
    {
        begin();
        openPanel();
        QCOMPARE(m_demo->takeSent(), QStringList());
        (*m_demo)("reply MEM:MSC? -> OFF");
        m_rig->connectDevice();
        QCOMPARE(m_demo->takeCommands().last(), QString("TEMP?"));
        QCOMPARE(m_rig->get<QTableWidget>("table").rowCount(), 20);
        QCOMPARE(m_rig->text("serias"), QString("20215678"));
        QCOMPARE(m_rig->text("label_firmware"), QString("2.7.1"));
        m_rig->click("connect");
        QCOMPARE(m_rig->get<QTableWidget>("table").rowCount(), 0);
    }

    void theKeypadTunesTheReference()
    {
        openPanel();
        m_rig->click("key_REF_OSC");
        auto& keypad = m_rig->get("keypad");
        QVERIFY(keypad.isVisible());
        QTest::keyClicks(keypad.focusWidget(), "500");
        QTest::keyClick(keypad.focusWidget(), Qt::Key_Return);
        QCOMPARE(m_demo->takeCommands(), QStringList("MEM:DAC 500!"));
        QCOMPARE(m_rig->text("REF_OSC"), QString("500"));
    }

private:
    void openPanel()
    {
        m_rig->openPanel("service");
        m_demo->takeSent();
    }
};

QTEST_MAIN(ServicePanelTest)
#include "service_panel_test.moc"
