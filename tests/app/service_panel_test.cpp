#include "app/side_panels.h"
#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

namespace
{
const QString firstRow = QStringLiteral("MEM:TABLE:ADD 1000000000 -4\\n");
const QString temperature = QStringLiteral("TEMP?\\n");
} // namespace

/// The service panel in its window: what happens to the window while it works.
class ServicePanelTest : public PanelTest
{
    Q_OBJECT

private slots:
    void whatEndsTheWindowsWorkEndsWriting_data();
    void whatEndsTheWindowsWorkEndsWriting();
    void temperatureIsPolledWhileOpen();
    void anInstrumentFillsAnOpenPanel();
    void theKeypadTunesTheReference();

private:
    static void openPanel(PanelRig& rig);

    const DocumentsFolder m_documents{m_home.path()};
};

void ServicePanelTest::openPanel(PanelRig& rig)
{
    rig.click("service");
    QTRY_VERIFY(!SidePanels::moving());
}

void ServicePanelTest::whatEndsTheWindowsWorkEndsWriting_data()
{
    testColumns<QString, QStringList>("button", "sentAfterwards");
    testRow("panel closed", "service", QStringList());
    testRow("other panel opened", "open_mod", QStringList());
    testRow("disconnected", "connect", QStringList({"*RST\\n", "MEM:MSC ON\\n"}));
    testRow("window closed", "closeWindow", QStringList({"*RST\\n", "MEM:MSC ON\\n"}));
}

void ServicePanelTest::whatEndsTheWindowsWorkEndsWriting()
{
    QFETCH(QString, button);
    QFETCH(QStringList, sentAfterwards);
    PanelRig rig;
    rig.connectDevice();
    openPanel(rig);
    QCOMPARE(rig.get<QTableWidget>("table").rowCount(), 20);
    m_demo->takeSent();
    QTimer ending;
    connect(&ending, &QTimer::timeout, this, [&] {
        if (!(*m_demo)(QStringLiteral("transcript")).contains(firstRow))
            return;
        ending.stop();
        rig.click(qPrintable(button));
    });
    ending.start(1);
    rig.click("applyCalibrate");
    QCOMPARE(m_demo->takeSent(), QStringList(firstRow) + sentAfterwards);
    QCOMPARE(rig.get<QPushButton>("applyCalibrate").text(), QString("Write"));
    QVERIFY(rig.get("table").isEnabledTo(&rig.window()));
    QVERIFY(!rig.window().findChild<QWidget*>("progressBarForTable"));
    QVERIFY(!QGuiApplication::overrideCursor());
    // Another instrument is never given this one's table.
    QCOMPARE(rig.get<QTableWidget>("table").rowCount(), sentAfterwards.isEmpty() ? 20 : 0);
    QTRY_VERIFY(!SidePanels::moving());
}

void ServicePanelTest::temperatureIsPolledWhileOpen()
{
    PanelRig rig;
    rig.connectDevice();
    auto* connection = rig.window().findChild<Connection*>();
    m_demo->takeSent();
    emit connection->pollDue();
    QCOMPARE(m_demo->takeSent(), QStringList());
    openPanel(rig);
    m_demo->takeSent();
    emit connection->pollDue();
    QCOMPARE(m_demo->takeSent(), QStringList(temperature));
    (*m_demo)(QStringLiteral("reply TEMP? ->"));
    const QString shown = rig.get<QLabel>("text_temp").text();
    emit connection->pollDue();
    QCOMPARE(rig.status(), QString("error getting temperature"));
    QCOMPARE(rig.get<QLabel>("text_temp").text(), shown);
}

void ServicePanelTest::anInstrumentFillsAnOpenPanel()
{
    PanelRig rig;
    openPanel(rig);
    QCOMPARE(m_demo->takeSent(), QStringList());
    rig.connectDevice();
    QCOMPARE(m_demo->takeSent().mid(1).last(), temperature);
    QCOMPARE(rig.get<QTableWidget>("table").rowCount(), 20);
    QCOMPARE(rig.get<QLabel>("serias").text(), QString("20215678"));
    QCOMPARE(rig.get<QLabel>("label_firmware").text(), QString("2.7.1"));
}

void ServicePanelTest::theKeypadTunesTheReference()
{
    PanelRig rig;
    rig.connectDevice();
    openPanel(rig);
    m_demo->takeSent();
    rig.click("key_REF_OSC");
    auto& keypad = rig.get("keypad");
    QVERIFY(keypad.isVisible());
    QTest::keyClicks(keypad.focusWidget(), "500");
    QTest::keyClick(keypad.focusWidget(), Qt::Key_Return);
    QCOMPARE(m_demo->takeSent(), QStringList({"MEM:DAC 500\\n", "SYSTem:ERRor?\\n"}));
    QCOMPARE(rig.get<QLineEdit>("REF_OSC").text(), QString("500"));
}

QTEST_MAIN(ServicePanelTest)
#include "service_panel_test.moc"
