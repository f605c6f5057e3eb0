#include "tests/support/panel_rig.h"

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
    // Exchanged too quickly to be seen gone.
    plug("[3333]\nmodel=KLV-20G\n");
    QTRY_COMPARE(rig.device(), QString("KLV-20G 3333"));
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

QTEST_MAIN(HotPlugTest)
#include "hot_plug_test.moc"
