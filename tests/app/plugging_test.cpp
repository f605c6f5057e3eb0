#include "service/firmware_dialog.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"

#include <QAction>
#include <QLineEdit>

/// Cables pulled and plugged in, by way of the file of simulated instruments.
class PluggingTest : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Before the library is loaded, which looks for it then.
        plug({});
        qputenv("KLV_DEMO_FILE", QFile::encodeName(m_folder.filePath("instruments.ini")));
    }

    void unpluggingDisconnectsAndPluggingConnects()
    {
        beginDemo("[1111]\nmodel=KLV-6G\n");
        QCOMPARE(m_rig->device(), QString("KLV-6G 1111"));
        plug({});
        QTRY_COMPARE(m_rig->device(), QString("Disconnected"));
        plug("[2222]\nmodel=KLV-20G\n");
        QTRY_COMPARE(m_rig->device(), QString("KLV-20G 2222"));
        QTRY_COMPARE(m_rig->status(),
                     QString("Connected to KLV-20G (2222) in place of KLV-6G (1111)"));
        m_rig->get<QLineEdit>("Stop").setText("20 000 000 000");
        m_rig->click("Output");
        m_demo->takeTranscript();
        // Exchanged too quickly to be seen gone.
        plug("[4444]\nmodel=KLV-6G\n");
        QTRY_COMPARE(
            m_rig->status(),
            QString("Connected to KLV-6G (4444) in place of KLV-20G (2222)  ·  "
                    "One value of sweep and list was bounded by the limits of the instrument"));
        QVERIFY(!m_rig->isChecked("Output"));
        QCOMPARE(m_demo->takeCommands().filter("OUTPut"), QStringList("OUTPut OFF!"));
        // Gone again: nothing is connected, and the same one is no exchange.
        plug({});
        QTRY_COMPARE(m_rig->device(), QString("Disconnected"));
        plug("[4444]\nmodel=KLV-6G\n");
        QTRY_COMPARE(m_rig->device(), QString("KLV-6G 4444"));
        QTRY_COMPARE(m_rig->status(), QString());
    }

    void massStorageModeComesBackByItself()
    {
        beginDemo("[1111]\nmodel=KLV-6G\nmassStorage=on\n");
        QTRY_COMPARE(m_rig->device(), QString("KLV-6G 1111"));
        QCOMPARE(m_demo->takeCommands().filter("MEM:MSC"),
                 QStringList({"MEM:MSC?", "MEM:MSC OFF", "MEM:MSC?"}));
    }

    void userDisconnectKeepsTheWatchQuiet()
    {
        beginDemo("[1111]\nmodel=KLV-6G\n");
        m_rig->click("connect");
        m_demo->takeTranscript();
        plug("[1111]\nmodel=KLV-6G\n[2222]\nmodel=KLV-20G\n");
        QVERIFY(!QTest::qWaitFor([this] { return m_rig->isConnected(); }, 500));
        QVERIFY(m_demo->takeTranscript().isEmpty());
    }

    void anInstrumentComesBackFromItsBootloader()
    {
        beginDemo("[1111]\nmodel=KLV-6G\n");
        m_demo->takeTranscript();
        auto& dialog = m_rig->get<Firmware>("Firmware");
        dialog.show();
        QTest::mouseClick(dialog.findChild<QAbstractButton*>("butOk"), Qt::LeftButton);
        QTRY_COMPARE(m_rig->device(), QString("Disconnected"));
        QCOMPARE(m_demo->takeTranscript(), QStringList({"> MEM:REPROGRAM\\n", "close"}));
        QVERIFY(m_rig->status().contains("bootloader"));
        QTRY_COMPARE(m_rig->device(), QString("KLV-6G 1111"));
        QVERIFY(!m_rig->status().contains("bootloader"));
        QCOMPARE(m_demo->takeCommands().count("*RST"), 1);
    }

    void simulatorIsChosenWhileRunning_data()
    {
        testNames("amid", {"connected", "searching", "connecting", "choosing"});
    }

    void simulatorIsChosenWhileRunning()
    {
        QFETCH(QString, amid);
        plug(amid == "choosing" ? "[1111]\nmodel=KLV-6G\n[2222]\n" : "[1111]\nmodel=KLV-6G\n");
        begin();
        auto& action = m_rig->get<QAction>("action_simulator");
        QVERIFY(!action.isChecked());
        QVERIFY(!m_rig->get("label_simulated").isVisible());
        m_demo->takeTranscript();
        // In the pause behind the reset.
        if (amid == "connecting")
            when(
                m_rig->window(), [this] { return m_rig->isConnected(); },
                [&] { action.trigger(); });
        if (amid == "searching")
            m_rig->click("connect");
        else
            m_rig->connectDevice();
        if (amid == "choosing") {
            QVERIFY(QApplication::activeModalWidget());
            plug("[1111]\nmodel=KLV-6G\n");
            // The simulated bus looks at its file every 20 ms.
            QTest::qWait(50);
        }
        if (amid != "connecting")
            action.trigger();
        QTRY_COMPARE(m_rig->device(), QString("KLV-6G 1111"));
        QVERIFY(action.isChecked());
        QVERIFY(m_rig->get("label_simulated").isVisible());
        QVERIFY(!QApplication::activeModalWidget());
        const bool isHandedBack = amid == "connected" || amid == "connecting";
        QCOMPARE(m_demo->takeCommands().count("MEM:MSC ON"), isHandedBack ? 1 : 0);

        // And back: the library that was named at the start, which is on no bus here.
        action.trigger();
        QTRY_VERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!m_rig->get("label_simulated").isVisible());
        QCOMPARE(m_demo->takeCommands().count("MEM:MSC ON"), 1);
    }

    void simulatorIsOfferedWhereNothingIsFound()
    {
        plug({});
        StartOptions options = PanelRig::defaultOptions();
        options.visaLibrary = QStringLiteral("NoSuchVisa");
        begin(options);
        const QWidget& offer = m_rig->get("try_simulator");
        QVERIFY(!offer.isVisible());
        m_rig->connectDevice();
        QVERIFY(offer.isVisible());
        plug("[1111]\nmodel=KLV-6G\n");
        m_rig->click("try_simulator");
        QTRY_COMPARE(m_rig->device(), QString("KLV-6G 1111"));
        QVERIFY(!offer.isVisible());
        // Without any simulated instrument there is nothing more to offer.
        plug({});
        m_rig->connectDevice();
        m_rig->connectDevice();
        QVERIFY(!m_rig->isConnected());
        QVERIFY(!offer.isVisible());
    }

private:
    /// With these instruments, and connected to the first of them.
    void beginDemo(const QByteArray& instruments)
    {
        plug(instruments);
        StartOptions options = PanelRig::defaultOptions();
        options.isDemo = true;
        begin(options);
        m_rig->connectDevice();
    }

    /// Writes the file of plugged-in instruments as an editor would: beside it, then renamed.
    void plug(const QByteArray& instruments)
    {
        QSaveFile file(m_folder.filePath("instruments.ini"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(instruments);
        QVERIFY(file.commit());
    }

    QTemporaryDir m_folder;
};

QTEST_MAIN(PluggingTest)
#include "plugging_test.moc"
