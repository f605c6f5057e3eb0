#include "link/instrument_limits.h"
#include "service/about_box.h"
#include "service/firmware_dialog.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QLabel>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QToolButton>

namespace
{
const QString bootloader = QStringLiteral("MEM:REPROGRAM\\n");
}

/// From the About box into the bootloader and back.
class FirmwareTest : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void theDialogWarns();
    void onlyOkSends_data();
    void onlyOkSends();
    void everyConfirmationSends();
    void confirmingWithoutAnInstrumentSendsNothing();
    void theInstrumentLeavesAndComesBack();

private:
    static StartOptions demoOptions();
    static Firmware& openDialog(PanelRig& rig);
    static void press(Firmware& dialog, const char* button);

    QTemporaryDir m_folder;
};

void FirmwareTest::initTestCase()
{
    // Before the library is loaded, which looks for it then.
    qputenv("KLV_DEMO_FILE", QFile::encodeName(m_folder.filePath("instruments.ini")));
}

void FirmwareTest::init()
{
    QSaveFile file(m_folder.filePath("instruments.ini"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[1111]\nmodel=KLV-6G\n\n[2222]\nmodel=KLV-20G\nmaker=Other\n");
    QVERIFY(file.commit());
    PanelTest::init();
}

StartOptions FirmwareTest::demoOptions()
{
    StartOptions options = PanelRig::defaultOptions();
    options.isDemo = true;
    return options;
}

Firmware& FirmwareTest::openDialog(PanelRig& rig)
{
    auto& about = rig.get<Form>("Form");
    about.showAbout();
    QTest::mouseClick(about.findChild<QPushButton*>("butUpdate"), Qt::LeftButton);
    auto& dialog = rig.get<Firmware>("Firmware");
    if (about.isVisible() || !dialog.isVisible())
        qFatal("no dialog, or About still open");
    return dialog;
}

void FirmwareTest::press(Firmware& dialog, const char* button)
{
    QTest::mouseClick(dialog.findChild<QAbstractButton*>(button), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
}

void FirmwareTest::theDialogWarns()
{
    PanelRig rig;
    Firmware& dialog = openDialog(rig);
    QTextDocument message;
    message.setHtml(dialog.findChild<QLabel*>("lblMessage")->text());
    QCOMPARE(message.toPlainText().split('\n'),
             QStringList({"Clicking \"OK\" will switch the", "device to \"Bootloader\" mode.",
                          "Uploading an incorrect file will", "damage your device!",
                          "Proceed to update a firmware?"}));
    QCOMPARE(dialog.findChild<QLabel*>("lblCaption")->text(), QString("Firmware update"));
    QCOMPARE(dialog.findChild<QAbstractButton*>("butCancel")->text(), QString("Cancel"));
    QCOMPARE(dialog.findChild<QAbstractButton*>("butClose")->text(), QString("Close"));
    QVERIFY(dialog.windowFlags().testFlag(Qt::FramelessWindowHint));
}

void FirmwareTest::onlyOkSends_data()
{
    testColumns<QByteArray>("button");
    testRow("Cancel", QByteArray("butCancel"));
    testRow("cross", QByteArray("butClose"));
    testRow("Escape", QByteArray());
}

void FirmwareTest::onlyOkSends()
{
    QFETCH(QByteArray, button);
    PanelRig rig;
    rig.connectDevice();
    m_demo->takeSent();
    Firmware& dialog = openDialog(rig);
    if (button.isEmpty())
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else
        press(dialog, button.constData());
    QVERIFY(!dialog.isVisible());
    QCOMPARE(m_demo->takeSent(), QStringList());
    QVERIFY(rig.isConnected());
}

void FirmwareTest::everyConfirmationSends()
{
    PanelRig rig;
    rig.connectDevice();
    // An instrument that stays on the bus.
    (*m_demo)(QStringLiteral("reply MEM:REPROGRAM ->"));
    m_demo->takeTranscript();
    press(openDialog(rig), "butOk");
    press(openDialog(rig), "butOk");
    // Neither a reply nor an error check.
    QCOMPARE(m_demo->takeTranscript(), QStringList({"> " + bootloader, "> " + bootloader}));
}

void FirmwareTest::confirmingWithoutAnInstrumentSendsNothing()
{
    PanelRig rig;
    press(openDialog(rig), "butOk");
    QCOMPARE(m_demo->takeTranscript(), QStringList());
    QCOMPARE(rig.status(), QString());
}

void FirmwareTest::theInstrumentLeavesAndComesBack()
{
    PanelRig rig(demoOptions());
    rig.connectDevice();
    QCOMPARE(rig.device(), QString("KLV-6G 1111"));
    m_demo->takeTranscript();
    press(openDialog(rig), "butOk");
    QTRY_COMPARE(rig.device(), QString("Disconnected"));
    QCOMPARE(m_demo->takeTranscript(), QStringList({"> " + bootloader, "close"}));
    QVERIFY(rig.status().contains("bootloader"));
    QTRY_COMPARE(rig.device(), QString("KLV-6G 1111"));
    QVERIFY(!rig.status().contains("bootloader"));
    QCOMPARE(m_demo->takeSent().count("*RST\\n"), 1);
}

QTEST_MAIN(FirmwareTest)
#include "firmware_test.moc"
