#include "tests/support/panel_rig.h"
#include "tests/support/rows.h"

#include <QAction>
#include <QLineEdit>

#include <QSaveFile>
#include <QTemporaryDir>

/// Cables pulled and plugged in, by way of the file of simulated instruments.
class HotPlugTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void unpluggingDisconnectsAndPluggingConnects();
    void massStorageModeComesBackByItself();
    void userDisconnectKeepsTheWatchQuiet();
    void outAndInIsAnotherConnection();
    void simulatorIsChosenWhileRunning_data();
    void simulatorIsChosenWhileRunning();
    void simulatorIsOfferedWhereNothingIsFound();

private:
    static StartOptions demoOptions();
    void plug(const QByteArray& instruments);

    std::unique_ptr<Demo> m_demo;
    QTemporaryDir m_folder;
};

void HotPlugTest::initTestCase()
{
    plug({});
    // Before the library is loaded, which looks for it then.
    qputenv("KLV_DEMO_FILE", QFile::encodeName(m_folder.filePath("instruments.ini")));
    m_demo = std::make_unique<Demo>();
}

StartOptions HotPlugTest::demoOptions()
{
    StartOptions options = PanelRig::defaultOptions();
    options.isDemo = true;
    return options;
}

/// Writes the file of plugged-in instruments as an editor would: beside it, then renamed.
void HotPlugTest::plug(const QByteArray& instruments)
{
    QSaveFile file(m_folder.filePath("instruments.ini"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(instruments);
    QVERIFY(file.commit());
}

void HotPlugTest::unpluggingDisconnectsAndPluggingConnects()
{
    plug("[1111]\nmodel=KLV-6G\n");
    PanelRig rig(demoOptions());
    rig.connectDevice();
    QCOMPARE(rig.device(), QString("KLV-6G 1111"));
    plug({});
    QTRY_COMPARE(rig.device(), QString("Disconnected"));
    plug("[2222]\nmodel=KLV-20G\n");
    QTRY_COMPARE(rig.device(), QString("KLV-20G 2222"));
    QTRY_COMPARE(rig.status(), QString("Connected to KLV-20G (2222) in place of KLV-6G (1111)"));
    // Exchanged too quickly to be seen gone.
    plug("[3333]\nmodel=KLV-20G\n");
    QTRY_COMPARE(rig.device(), QString("KLV-20G 3333"));
    QTRY_COMPARE(rig.status(), QString("Connected to KLV-20G (3333) in place of KLV-20G (2222)"));
    rig.get<QLineEdit>("Stop").setText("20 000 000 000");
    plug("[4444]\nmodel=KLV-6G\n");
    const QString bounded =
        "One value of sweep and list was bounded by the limits of the instrument";
    QTRY_COMPARE(rig.status(),
                 "Connected to KLV-6G (4444) in place of KLV-20G (3333)  ·  " + bounded);
    // Gone again: nothing is connected, and the same one is no exchange.
    plug({});
    QTRY_COMPARE(rig.device(), QString("Disconnected"));
    plug("[4444]\nmodel=KLV-6G\n");
    QTRY_COMPARE(rig.device(), QString("KLV-6G 4444"));
    QTRY_COMPARE(rig.status(), QString());
}

void HotPlugTest::massStorageModeComesBackByItself()
{
    plug("[1111]\nmodel=KLV-6G\nmassStorage=on\n");
    m_demo->takeTranscript();
    PanelRig rig(demoOptions());
    rig.connectDevice();
    QTRY_COMPARE(rig.device(), QString("KLV-6G 1111"));
    const QStringList sent = m_demo->takeSent();
    QCOMPARE(sent.count("MEM:MSC?\\n"), 2);
    QCOMPARE(sent.count("MEM:MSC OFF\\n"), 1);
}

void HotPlugTest::userDisconnectKeepsTheWatchQuiet()
{
    plug("[1111]\nmodel=KLV-6G\n");
    PanelRig rig(demoOptions());
    rig.connectDevice();
    rig.click("connect");
    m_demo->takeTranscript();
    plug("[1111]\nmodel=KLV-6G\n[2222]\nmodel=KLV-20G\n");
    QTest::qWait(500);
    QVERIFY(!rig.isConnected());
    QVERIFY(m_demo->takeTranscript().isEmpty());
}

void HotPlugTest::outAndInIsAnotherConnection()
{
    plug("[1111]\nmodel=KLV-6G\n");
    PanelRig rig(demoOptions());
    rig.connectDevice();
    rig.click("Output");
    m_demo->takeTranscript();
    plug({});
    QTest::qWait(100);
    plug("[1111]\nmodel=KLV-6G\n");
    QTRY_VERIFY(!rig.get<QPushButton>("Output").isChecked());
    QTRY_COMPARE(rig.device(), QString("KLV-6G 1111"));
    QCOMPARE(m_demo->takeSent().filter("OUTPut"), QStringList("OUTPut OFF\\n"));
}

void HotPlugTest::simulatorIsChosenWhileRunning_data()
{
    testColumns<QString>("amid");
    for (const char* amid : {"connected", "searching", "connecting", "choosing"})
        testRow(amid, QString(amid));
}

void HotPlugTest::simulatorIsChosenWhileRunning()
{
    QFETCH(QString, amid);
    plug(amid == "choosing" ? "[1111]\nmodel=KLV-6G\n[2222]\n" : "[1111]\nmodel=KLV-6G\n");
    PanelRig rig;
    auto* action = rig.window().findChild<QAction*>("action_simulator");
    QVERIFY(!action->isChecked());
    QVERIFY(!rig.get("label_simulated").isVisible());
    m_demo->takeTranscript();
    // In the pause behind the reset, and at once again.
    QTimer chooser;
    connect(&chooser, &QTimer::timeout, &rig.window(), [&] {
        if (!rig.isConnected())
            return;
        chooser.stop();
        action->trigger();
    });
    if (amid == "connecting")
        chooser.start(0);
    if (amid == "searching")
        rig.click("connect");
    else
        rig.connectDevice();
    if (amid == "choosing") {
        QVERIFY(QApplication::activeModalWidget());
        plug("[1111]\nmodel=KLV-6G\n");
        // The simulated bus looks at its file every 20 ms.
        QTest::qWait(50);
    }
    if (amid != "connecting")
        action->trigger();
    QTRY_COMPARE(rig.device(), QString("KLV-6G 1111"));
    QVERIFY(action->isChecked());
    QVERIFY(rig.get("label_simulated").isVisible());
    QVERIFY(!QApplication::activeModalWidget());
    const QStringList sent = m_demo->takeSent();
    const bool isHandedBack = amid == "connected" || amid == "connecting";
    QCOMPARE(sent.count("MEM:MSC ON\\n"), isHandedBack ? 1 : 0);

    // And back: the library that was named at the start, which is on no bus here.
    action->trigger();
    QTRY_VERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!rig.get("label_simulated").isVisible());
    QCOMPARE(m_demo->takeSent().count("MEM:MSC ON\\n"), 1);
}

void HotPlugTest::simulatorIsOfferedWhereNothingIsFound()
{
    plug({});
    StartOptions options = PanelRig::defaultOptions();
    options.visaLibrary = QStringLiteral("NoSuchVisa");
    PanelRig rig(options);
    QVERIFY(!rig.get("try_simulator").isVisible());
    rig.connectDevice();
    QVERIFY(rig.get("try_simulator").isVisible());
    plug("[1111]\nmodel=KLV-6G\n");
    rig.click("try_simulator");
    QTRY_COMPARE(rig.device(), QString("KLV-6G 1111"));
    QVERIFY(rig.get("label_simulated").isVisible());
    QVERIFY(!rig.get("try_simulator").isVisible());
    // Without any simulated instrument there is nothing more to offer.
    plug({});
    rig.connectDevice();
    rig.connectDevice();
    QVERIFY(!rig.isConnected());
    QVERIFY(!rig.get("try_simulator").isVisible());
}

QTEST_MAIN(HotPlugTest)
#include "hot_plug_test.moc"
