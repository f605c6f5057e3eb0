#include "cw/wgt_mode_pow.h"
#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"

#include <QAction>
#include <QLabel>
#include <QTextDocument>

namespace
{
const QString onQuestion = QStringLiteral("Turn ON maximum\n(non-calibrated)\npower mode?");
const QString offQuestion = QStringLiteral("Turn OFF maximum\n(non-calibrated)\npower mode?");
} // namespace

/// The maximum-power mode by its button, its prompt and its indicator.
class PowerModeTest : public PanelTest
{
    Q_OBJECT

private slots:
    void confirmingSwitchesCancellingDoesNot();
    void confirmingWithoutAnInstrumentSendsNothing();
    void theModeIsRestoredOnConnecting();
    void aFailingCheckDisconnects();
    void theQuestionOutlivesAChangeOfLanguage();

private:
    static QString question(const WgtModePow& prompt);
    WgtModePow& open(PanelRig& rig);
    void press(WgtModePow& prompt, const char* button);
    void confirm(PanelRig& rig) { press(open(rig), "butYes"); }
};

/// The one question that is to be seen, as it is to be read.
QString PowerModeTest::question(const WgtModePow& prompt)
{
    QStringList questions;
    const auto labels = prompt.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        QTextDocument text;
        text.setHtml(label->text());
        if (label->isVisible())
            questions << text.toPlainText();
    }
    return questions.join('|');
}

WgtModePow& PowerModeTest::open(PanelRig& rig)
{
    rig.click("butSetModePow");
    return rig.get<WgtModePow>("WgtModePow");
}

void PowerModeTest::press(WgtModePow& prompt, const char* button)
{
    QVERIFY(prompt.isVisible());
    QTest::mouseClick(prompt.findChild<QPushButton*>(button), Qt::LeftButton);
    QVERIFY(!prompt.isVisible());
}

void PowerModeTest::confirmingSwitchesCancellingDoesNot()
{
    PanelRig rig;
    rig.connectDevice();
    m_demo->takeSent();
    const QWidget& indicator = rig.get("wgtMaxPow");
    for (const bool isOn : {false, true, false}) {
        WgtModePow& prompt = open(rig);
        QCOMPARE(question(prompt), isOn ? offQuestion : onQuestion);
        press(prompt, "butCancel");
        open(rig);
        QTest::keyClick(&prompt, Qt::Key_Escape);
        QVERIFY(!prompt.isVisible());
        open(rig);
        // Leaving it for another window does not answer the question.
        rig.window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&rig.window()));
        QCOMPARE(question(prompt), isOn ? offQuestion : onQuestion);
        QCOMPARE(m_demo->takeSent(), QStringList());
        QCOMPARE(indicator.isVisible(), isOn);
        press(prompt, "butYes");
        QCOMPARE(m_demo->takeSent(),
                 QStringList({isOn ? "POW:BOOST OFF\\n" : "POW:BOOST ON\\n", "SYSTem:ERRor?\\n"}));
        QCOMPARE(indicator.isVisible(), !isOn);
    }
}

void PowerModeTest::confirmingWithoutAnInstrumentSendsNothing()
{
    PanelRig rig;
    confirm(rig);
    QVERIFY(rig.get("wgtMaxPow").isVisible());
    QCOMPARE(question(open(rig)), offQuestion);
    QCOMPARE(m_demo->takeSent(), QStringList());
}

void PowerModeTest::theModeIsRestoredOnConnecting()
{
    PanelRig rig;
    rig.connectDevice();
    QVERIFY(m_demo->takeSent().filter("BOOST").isEmpty());
    confirm(rig);
    rig.click("connect");
    QVERIFY(rig.get("wgtMaxPow").isVisible());
    // The first one only brings it back from its mass-storage mode.
    rig.connectDevice();
    m_demo->takeSent();
    rig.connectDevice();
    const QStringList sent = m_demo->takeSent();
    const int boost = sent.indexOf("POW:BOOST ON\\n");
    QVERIFY(sent.value(boost - 2).startsWith("POW "));
    QCOMPARE(sent.value(boost + 1), QString("SYSTem:ERRor?\\n"));
    QCOMPARE(sent.filter("BOOST").size(), 1);
    // Hidden with its window, the indicator still says that the mode is on.
    rig.window().hide();
    rig.get<WgtModePow>("WgtModePow").findChild<QPushButton*>("butYes")->click();
    QCOMPARE(m_demo->takeSent().value(0), QString("POW:BOOST OFF\\n"));
}

void PowerModeTest::aFailingCheckDisconnects()
{
    PanelRig rig;
    rig.connectDevice();
    (*m_demo)(QStringLiteral("unplug"));
    confirm(rig);
    QVERIFY(!rig.isConnected());
}

void PowerModeTest::theQuestionOutlivesAChangeOfLanguage()
{
    PanelRig rig;
    confirm(rig);
    const auto actions = rig.window().findChildren<QAction*>();
    for (const char* code : {"ru", "en"}) {
        for (QAction* action : actions) {
            if (action->data().toString() == code)
                action->trigger();
        }
    }
    QCoreApplication::processEvents();
    WgtModePow& prompt = open(rig);
    QCOMPARE(question(prompt), offQuestion);
    press(prompt, "butYes");
    QCOMPARE(question(open(rig)), onQuestion);
}

QTEST_MAIN(PowerModeTest)
#include "power_mode_test.moc"
