#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QLabel>
#include <QLineEdit>

#include <functional>

namespace
{
const QString drain = QStringLiteral("SYSTem:ERRor?\\n");
}

/// The continuous-wave controls by keys and clicks, against what reaches the wire.
class CwControlsTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init();

    void frequencyIsCommitted_data();
    void frequencyIsCommitted();
    void noNumberSendsNothing_data();
    void noNumberSendsNothing();
    void noNumberIsPushed();
    void refusedKeySaysWhy();
    void typingReplacesTheCommittedNumber();
    void escapeBringsTheAcceptedBack();
    void powerIsCommitted_data();
    void powerIsCommitted();
    void fieldShowsWhatTheInstrumentTook();
    void stepsCommitAtOnce();
    void outputAndReferenceSwitch();
    void externalFrequencyIsEntered_data();
    void externalFrequencyIsEntered();
    void enteringTwiceSendsOnce();
    void offlineOnlyThePanelChanges();
    void unlockShowsAndGoes();
    void indicator329ShowsAndGoes();
    void failureEmptiesTheFieldAndDisconnects_data();
    void failureEmptiesTheFieldAndDisconnects();

private:
    QLineEdit& field(const char* name) { return m_rig->get<QLineEdit>(name); }
};

void CwControlsTest::init()
{
    PanelTest::init();
    m_rig = std::make_unique<PanelRig>();
    m_rig->connectDevice();
    QVERIFY(m_rig->isConnected());
    m_demo->takeTranscript();
}

void CwControlsTest::frequencyIsCommitted_data()
{
    testColumns<QString, QString, QString>("typed", "sent", "shown");
    testRow("hertz", "2500000", "2500000.000000", "2 500 000");
    testRow("grouped", "2 500 000", "2500000.000000", "2 500 000");
    testRow("giga", "2.5G", "2500000000.000000", "2 500 000 000");
    testRow("comma, kilo", "1500,25k", "1500250.000000", "1 500 250");
    testRow("above MAX", "99G", "20000000000.000000", "20 000 000 000");
    testRow("below MIN", "1", "100000.000000", "100 000");
    testRow("fraction", "1000000.6", "1000001.000000", "1 000 001");
    testRow("not a number", "1.2.3", "100000.000000", "100 000");
    testRow("letters are refused", "5xyzM", "5000000.000000", "5 000 000");
    testRow("huge", QString(60, '9'), "20000000000.000000", "20 000 000 000");
}

void CwControlsTest::frequencyIsCommitted()
{
    QFETCH(QString, typed);
    QFETCH(QString, sent);
    QFETCH(QString, shown);
    m_rig->enter("FREQ", typed);
    QCOMPARE(m_demo->takeSent(), QStringList({"FREQ " + sent + " Hz;FREQ?\\n", drain}));
    QCOMPARE(field("FREQ").text(), shown);
    QVERIFY(!field("FREQ").hasSelectedText());
    QVERIFY(!field("FREQ").property("edited").toBool());
}

void CwControlsTest::noNumberSendsNothing_data()
{
    testColumns<QString, QString>("name", "typed");
    for (const char* typed : {"", "-", "--5", "5-3"})
        testRow(QString("power \"%1\"").arg(typed), "POW", typed);
    testRow("frequency empty", "FREQ", "");
    testRow("frequency point", "FREQ", ".");
}

/// On Return, on a step, on leaving the field, and when the output is switched on from within it.
void CwControlsTest::noNumberSendsNothing()
{
    QFETCH(QString, name);
    QFETCH(QString, typed);
    QLineEdit& edit = m_rig->get<QLineEdit>(qPrintable(name));
    m_rig->enter("POW", "-10");
    const QString accepted = edit.text();
    m_demo->takeSent();
    const std::function<void()> ends[] = {
        [&] { QTest::keyClick(&edit, Qt::Key_Return); },
        [&] { QTest::keyClick(&edit, Qt::Key_Up); },
        [&] { QTest::keyClick(&edit, Qt::Key_Tab); },
        [&] { m_rig->click("Output"); },
        [&] {
            m_rig->click("Output");
            edit.setFocus();
            edit.clear();
            m_rig->get<QPushButton>("Output").click();
        },
    };
    for (const auto& end : ends) {
        edit.setFocus();
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Delete);
        QTest::keyClicks(&edit, typed);
        end();
        QCOMPARE(edit.text(), accepted);
        QVERIFY2(m_rig->status().endsWith(": not a number, nothing is sent"),
                 qPrintable(m_rig->status()));
    }
    QCOMPARE(m_demo->takeSent(),
             QStringList({"OUTPut ON\\n", drain, "OUTPut OFF\\n", drain, "OUTPut ON\\n", drain}));
}

/// Nothing for the instrument that comes while a field is being typed into; what was accepted there
/// comes back, marked as not sent.
void CwControlsTest::noNumberIsPushed()
{
    m_rig->enter("POW", "-10");
    m_rig->click("connect");
    field("POW").setText("-");
    field("FREQ").clear();
    (*m_demo)(QStringLiteral("reply MEM:MSC? -> OFF"));
    m_demo->takeSent();
    m_rig->connectDevice();
    const QStringList sent = m_demo->takeSent();
    QCOMPARE(sent.filter(";POW?") + sent.filter(";FREQ?"), QStringList());
    QCOMPARE(field("POW").text(), QString("-10"));
    QVERIFY(field("POW").property("edited").toBool());
    QVERIFY2(m_rig->status().endsWith(": not a number, nothing is sent"),
             qPrintable(m_rig->status()));
}

void CwControlsTest::refusedKeySaysWhy()
{
    m_rig->enter("POW", "-10.5");
    QCOMPARE(m_rig->status(), QString("Power: whole dBm"));
    m_rig->click("key_POW");
    QTest::keyClicks(&field("keypad_entry"), "1,5");
    QTest::keyClick(&field("keypad_entry"), Qt::Key_Return);
    QCOMPARE(m_demo->takeSent().filter(";POW?"),
             QStringList({"POW -10.000000;POW?\\n", "POW 1.000000;POW?\\n"}));
}

void CwControlsTest::typingReplacesTheCommittedNumber()
{
    field("FREQ").setFocus();
    QTest::keyClicks(&field("FREQ"), "25M");
    QTest::keyClick(&field("FREQ"), Qt::Key_Return);
    QTest::keyClicks(&field("FREQ"), "7M");
    QTest::keyClick(&field("FREQ"), Qt::Key_Return);
    QCOMPARE(field("FREQ").text(), QString("7 000 000"));
    // With the cursor moved into it, it is edited.
    QTest::keyClick(&field("FREQ"), Qt::Key_Home);
    QTest::keyClicks(&field("FREQ"), "1");
    QTest::keyClick(&field("FREQ"), Qt::Key_Return);
    QCOMPARE(field("FREQ").text(), QString("17 000 000"));
}

void CwControlsTest::escapeBringsTheAcceptedBack()
{
    field("FREQ").setFocus();
    QTest::keyClicks(&field("FREQ"), "25");
    QVERIFY(field("FREQ").property("edited").toBool());
    QTest::keyClick(&field("FREQ"), Qt::Key_Escape);
    QCOMPARE(field("FREQ").text(), QString("1 000 000 000"));
    QVERIFY(!field("FREQ").property("edited").toBool());

    m_rig->click("open_ROSC_FREQ");
    QTest::keyClicks(&field("ROSC_FREQ"), "77");
    QTest::keyClick(&field("ROSC_FREQ"), Qt::Key_Escape);
    QVERIFY(field("ROSC_FREQ").isHidden());
    QVERIFY(m_rig->get("ROSC").hasFocus());
    m_rig->click("open_ROSC_FREQ");
    field("FREQ").setFocus();
    QVERIFY(field("ROSC_FREQ").isHidden());
    QCOMPARE(m_rig->get<QPushButton>("ROSC").text(), QString("10 MHz"));
    QVERIFY(m_demo->takeSent().isEmpty());
}

void CwControlsTest::powerIsCommitted_data()
{
    testColumns<QString, QString, QString>("typed", "sent", "shown");
    testRow("positive", "7", "7.000000", "7");
    testRow("negative", "-17", "-17.000000", "-17");
    testRow("not bounded here", "123", "123.000000", "0");
    testRow("fraction is refused", "-5.5", "-5.000000", "-5");
}

void CwControlsTest::powerIsCommitted()
{
    QFETCH(QString, typed);
    QFETCH(QString, sent);
    QFETCH(QString, shown);
    m_rig->enter("POW", typed);
    const QStringList messages = m_demo->takeSent();
    QCOMPARE(messages.first(), "POW " + sent + ";POW?\\n");
    QCOMPARE(messages.at(1), drain);
    QCOMPARE(field("POW").text(), shown);
}

void CwControlsTest::fieldShowsWhatTheInstrumentTook()
{
    (*m_demo)(QStringLiteral("fault 1 reply 1.25 GHZ\\n"));
    m_rig->enter("FREQ", "2G");
    QCOMPARE(field("FREQ").text(), QString("1 250 000 000"));
    (*m_demo)(QStringLiteral("fault 1 reply -9.6\\n"));
    m_rig->enter("POW", "-9");
    QCOMPARE(field("POW").text(), QString("-10"));
}

void CwControlsTest::stepsCommitAtOnce()
{
    field("FREQ").setFocus();
    QTest::keyClick(&field("FREQ"), Qt::Key_Up);
    QTest::keyClick(&field("FREQ"), Qt::Key_Up);
    QTest::keyClick(&field("FREQ"), Qt::Key_Down);
    field("FREQ").setCursorPosition(7);
    QTest::keyClick(&field("FREQ"), Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(m_demo->takeSent(), QStringList({"FREQ 1001000000.000000 Hz;FREQ?\\n", drain,
                                              "FREQ 1002000000.000000 Hz;FREQ?\\n", drain,
                                              "FREQ 1001000000.000000 Hz;FREQ?\\n", drain,
                                              "FREQ 1001100000.000000 Hz;FREQ?\\n", drain}));

    field("POW").setFocus();
    m_demo->takeSent();
    for (int notch : {120, -120, -120}) {
        QWheelEvent turn(QPointF(5, 5), field("POW").mapToGlobal(QPoint(5, 5)), QPoint(),
                         QPoint(0, notch), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&field("POW"), &turn);
    }
    QCOMPARE(m_demo->takeSent(), QStringList({"POW 1.000000;POW?\\n", drain, "POW 0.000000;POW?\\n",
                                              drain, "POW -1.000000;POW?\\n", drain}));
}

void CwControlsTest::outputAndReferenceSwitch()
{
    m_rig->click("Output");
    QVERIFY(m_rig->get("label_RF").isEnabled());
    m_rig->click("Output");
    QVERIFY(!m_rig->get("label_RF").isEnabled());
    m_rig->click("ROSC");
    QVERIFY(m_rig->get("label_ExtRef").isEnabled());
    m_rig->click("ROSC");
    QVERIFY(!m_rig->get("label_ExtRef").isEnabled());
    QCOMPARE(m_demo->takeSent(),
             QStringList({"OUTPut ON\\n", drain, "OUTPut OFF\\n", drain,
                          "ROSCillator:SOURce EXTernal\\n", drain, "ROSC:EXT:FREQ 10 MHZ\\n",
                          "ROSC:EXT:FREQ?\\n", drain, "ROSCillator:SOURce INTernal\\n", drain}));
}

void CwControlsTest::externalFrequencyIsEntered_data()
{
    testColumns<QString, QString, QString>("typed", "sent", "caption");
    testRow("inside", "25", "25", "25 MHz");
    testRow("above MAX", "5000", "100", "100 MHz");
    testRow("below MIN", "0", "1", "1 MHz");
    testRow("overflow", "99999999999999", "100", "100 MHz");
}

void CwControlsTest::externalFrequencyIsEntered()
{
    QFETCH(QString, typed);
    QFETCH(QString, sent);
    QFETCH(QString, caption);
    m_rig->click("ROSC");
    m_demo->takeSent();
    m_rig->click("open_ROSC_FREQ");
    QVERIFY(field("ROSC_FREQ").isVisible());
    m_rig->enter("ROSC_FREQ", typed);
    QVERIFY(field("ROSC_FREQ").isHidden());
    QCOMPARE(m_demo->takeSent(),
             QStringList({"ROSC:EXT:FREQ " + sent + " MHZ\\n", "ROSC:EXT:FREQ?\\n", drain}));
    QCOMPARE(m_rig->get<QPushButton>("ROSC").text(), caption);
}

void CwControlsTest::enteringTwiceSendsOnce()
{
    m_rig->click("open_ROSC_FREQ");
    QTest::keyClicks(&field("ROSC_FREQ"), "20");
    QTest::keyClick(&field("ROSC_FREQ"), Qt::Key_Return);
    field("FREQ").setFocus();
    QCOMPARE(m_demo->takeSent().count("ROSC:EXT:FREQ 20 MHZ\\n"), 1);
    QCOMPARE(m_rig->get<QPushButton>("ROSC").text(), QString("20 MHz"));
    // Opened and left without a word: nothing to send.
    m_rig->click("open_ROSC_FREQ");
    m_rig->enter("ROSC_FREQ", "");
    QVERIFY(m_demo->takeSent().isEmpty());
    QCOMPARE(m_rig->get<QPushButton>("ROSC").text(), QString("20 MHz"));
}

void CwControlsTest::offlineOnlyThePanelChanges()
{
    m_rig->click("connect");
    m_demo->takeSent();
    m_rig->click("open_ROSC_FREQ");
    m_rig->enter("ROSC_FREQ", "33");
    m_rig->click("ROSC");
    m_rig->click("Output");
    m_rig->enter("POW", "-8");
    m_rig->enter("FREQ", "50G");
    QCOMPARE(m_rig->get<QPushButton>("ROSC").text(), QString("33 MHz"));
    QCOMPARE(field("FREQ").text(), QString("20 000 000 000"));
    QVERIFY(m_demo->takeSent().isEmpty());
}

void CwControlsTest::unlockShowsAndGoes()
{
    (*m_demo)(QStringLiteral("error 328"));
    m_rig->click("Output");
    QVERIFY(m_rig->get("label_328").isVisible());
    QCOMPARE(m_rig->get<QPushButton>("ROSC").text(), QString());
    m_rig->click("Output");
    QVERIFY(!m_rig->get("label_328").isVisible());
    QCOMPARE(m_rig->get<QPushButton>("ROSC").text(), QString("10 MHz"));

    // With the external source selected the lamp is left as it is.
    (*m_demo)(QStringLiteral("reference absent"));
    m_rig->click("ROSC");
    QVERIFY(!m_rig->get("label_328").isVisible());
    QVERIFY(!m_rig->status().isEmpty());
    QVERIFY(m_rig->isConnected());
    QVERIFY(m_rig->get("label_ExtRef").property("unlocked").toBool());
    (*m_demo)(QStringLiteral("reference present"));
    m_rig->click("Output");
    QVERIFY(!m_rig->get("label_ExtRef").property("unlocked").toBool());
}

void CwControlsTest::indicator329ShowsAndGoes()
{
    (*m_demo)(QStringLiteral("error 329 Reverse power"));
    m_rig->click("Output");
    QVERIFY(m_rig->get("label_329").isVisible());
    QVERIFY(m_rig->get("label_329").toolTip().contains("Reverse power"));
    m_rig->click("connect");
    QVERIFY(!m_rig->get("label_329").isVisible());
}

void CwControlsTest::failureEmptiesTheFieldAndDisconnects_data()
{
    testColumns<QString>("fault");
    testRow("time-out", "fault 1 status 0xBFFF0015");
    testRow("unplugged", "unplug");
}

void CwControlsTest::failureEmptiesTheFieldAndDisconnects()
{
    QFETCH(QString, fault);
    (*m_demo)(fault);
    m_rig->enter("FREQ", "3G");
    QCOMPARE(field("FREQ").text(), QString());
    QVERIFY(!m_rig->isConnected());
    QCOMPARE(m_rig->device(), QString("Disconnected"));
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(field("FREQ").isEnabled());
    // What was accepted comes back when the field is left, and the next instrument is given it.
    (*m_demo)(QStringLiteral("plug"));
    m_rig->connectDevice();
    QCOMPARE(field("FREQ").text(), QString("3 000 000 000"));
    QCOMPARE((*m_demo)(QStringLiteral("ask FREQ?")).toDouble(), 3e9);
}

QTEST_MAIN(CwControlsTest)
#include "cw_controls_test.moc"
