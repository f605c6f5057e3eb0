#include "cw/wgt_mode_pow.h"
#include "service/about_box.h"
#include "service/firmware_dialog.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

/// What is sent only after a question: the maximum-power mode and the way into the bootloader.
class PromptsTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        begin();
    }

    void confirmingSwitchesCancellingDoesNot()
    {
        beginConnected();
        for (const bool isOn : {false, true, false}) {
            WgtModePow& prompt = openPrompt();
            QCOMPARE(question(), isOn ? "OFF" : "ON");
            press(prompt, "butCancel");
            openPrompt();
            QTest::keyClick(&prompt, Qt::Key_Escape);
            QVERIFY(!prompt.isVisible());
            openPrompt();
            // Leaving it for another window does not answer the question.
            m_rig->window().activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
            QVERIFY(prompt.isVisible());
            QCOMPARE(m_demo->takeSent(), QStringList());
            QCOMPARE(m_rig->get("wgtMaxPow").isVisible(), isOn);
            press(prompt, "butYes");
            QCOMPARE(m_demo->takeCommands(),
                     QStringList(isOn ? "POW:BOOST OFF!" : "POW:BOOST ON!"));
            QCOMPARE(m_rig->get("wgtMaxPow").isVisible(), !isOn);
        }
    }

    void theModeIsPushedOnConnecting()
    {
        press(openPrompt(), "butYes");
        QVERIFY(m_rig->get("wgtMaxPow").isVisible());
        QCOMPARE(m_demo->takeSent(), QStringList());
        m_rig->choose("ru");
        m_rig->choose("en");
        openPrompt();
        QCOMPARE(question(), "OFF");
        m_rig->connectDevice();
        const QStringList sent = m_demo->takeCommands();
        QCOMPARE(sent.filter("BOOST"), QStringList("POW:BOOST ON!"));
        QVERIFY(sent.value(sent.indexOf("POW:BOOST ON!") - 1).startsWith("POW "));
        // Hidden with its window, the indicator still says that the mode is on.
        m_rig->window().hide();
        m_rig->clickAll("butYes");
        QCOMPARE(m_demo->takeCommands().value(0), QString("POW:BOOST OFF!"));
    }

    void onlyOkLeadsIntoTheBootloader_data()
    {
        testNames("button", {"butCancel", "butClose", "Escape", "butOk"});
    }

    void onlyOkLeadsIntoTheBootloader()
    {
        QFETCH(QString, button);
        beginConnected();
        // An instrument that stays on the bus.
        (*m_demo)("reply MEM:REPROGRAM ->");
        for (int time = 0; time < 2; ++time) {
            Firmware& dialog = openFirmware();
            if (button == "Escape")
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                press(dialog, qPrintable(button));
            QVERIFY(!dialog.isVisible());
        }
        // Neither a reply nor an error check.
        const QString sent = "> MEM:REPROGRAM\\n";
        QCOMPARE(m_demo->takeTranscript(),
                 button == "butOk" ? QStringList({sent, sent}) : QStringList());
        QVERIFY(m_rig->isConnected());
    }

    void withoutAnInstrumentNothingIsSent()
    {
        press(openFirmware(), "butOk");
        QCOMPARE(m_demo->takeTranscript(), QStringList());
        QCOMPARE(m_rig->status(), QString());
    }

private:
    /// What the question would switch to.
    const char* question()
    {
        return m_rig->text("lblModePowFirst").startsWith("Turn ON") ? "ON" : "OFF";
    }

    WgtModePow& openPrompt()
    {
        m_rig->click("butSetModePow");
        return m_rig->get<WgtModePow>("WgtModePow");
    }

    Firmware& openFirmware()
    {
        auto& about = m_rig->get<Form>("Form");
        about.showAbout();
        QTest::mouseClick(about.findChild<QPushButton*>("butUpdate"), Qt::LeftButton);
        auto& dialog = m_rig->get<Firmware>("Firmware");
        if (about.isVisible() || !dialog.isVisible())
            qFatal("no dialog, or About still open");
        return dialog;
    }

    static void press(QWidget& prompt, const char* button)
    {
        QVERIFY(prompt.isVisible());
        QTest::mouseClick(prompt.findChild<QAbstractButton*>(button), Qt::LeftButton);
        QVERIFY(!prompt.isVisible());
    }
};

QTEST_MAIN(PromptsTest)
#include "prompts_test.moc"
