#include "fields/number_edit.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QWheelEvent>

/// Where the focus goes, what is said about the field that has it, and about the level at the
/// device.
class KeyboardTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        beginConnected();
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
    }

    void aClickLeavesTheFocusInTheField_data()
    {
        testColumns<QString, QString>("button", "sent");
        testRow("RF", "Output", "OUTPut ON!");
        testRow("reference", "ROSC", "ROSCillator:SOURce EXTernal!");
    }

    /// The field is left and committed first, as by any click; then it is stepped further.
    void aClickLeavesTheFocusInTheField()
    {
        QFETCH(QString, button);
        QFETCH(QString, sent);
        NumberEdit& field = m_rig->get<NumberEdit>("FREQ");
        field.setFocus();
        QTest::keyClicks(&field, "5M");
        m_rig->click(qPrintable(button));
        QCOMPARE(focus(), QString("FREQ"));
        const QStringList commands = m_demo->takeCommands();
        QCOMPARE(commands.value(0), QString("FREQ 5000000.000000 Hz;FREQ?!"));
        QCOMPARE(commands.value(1), sent);
        turnWheel(field);
        QCOMPARE(m_demo->takeCommands(), QStringList("FREQ 6000000.000000 Hz;FREQ?!"));
        QTest::keyClicks(&field, "7");
        QCOMPARE(field.text(), QString("7"));
    }

    /// A field that does not step is left for good.
    void theReferenceIsLeftByAClick()
    {
        m_rig->click("open_ROSC_FREQ");
        m_rig->click("ROSC");
        QVERIFY(focus() != "ROSC_FREQ");
        QVERIFY(m_rig->get("ROSC_FREQ").isHidden());
    }

    void theKeypadLeavesTheFocusInItsField()
    {
        m_rig->get("POW").setFocus();
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F, Qt::ControlModifier);
        QWidget& keypad = m_rig->get("keypad");
        QVERIFY(keypad.isVisible());
        QTest::keyClicks(keypad.focusWidget(), "2G");
        QTest::keyClick(keypad.focusWidget(), Qt::Key_Return);
        QCOMPARE(m_rig->window().focusWidget()->objectName(), QString("FREQ"));
        QCOMPARE(m_demo->takeCommands(), QStringList("FREQ 2000000000.000000 Hz;FREQ?!"));
    }

    void aKeyOpensTheKeypadOfTheField()
    {
        m_rig->openPanel("open_gener");
        m_rig->get("VOLTAGE").setFocus();
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F8);
        QVERIFY(m_rig->get("keypad").isVisible());
        QCOMPARE(m_rig->text("keypad_title"), m_rig->get("VOLTAGE").accessibleName());
    }

    void aPanelTakesTheFocusAndGivesItBack_data()
    {
        testColumns<QString, QString>("button", "first");
        testRow("modulation", "open_mod", "AM");
        testRow("sweep", "open_list", "List_is_Checked");
        testRow("LF generator", "open_gener", "sine_select");
        testRow("service", "service", "REF_OSC");
    }

    void aPanelTakesTheFocusAndGivesItBack()
    {
        QFETCH(QString, button);
        NumberEdit& field = m_rig->get<NumberEdit>("POW");
        field.setFocus();
        m_rig->openPanel(qPrintable(button));
        QTEST(focus(), "first");
        m_rig->openPanel(qPrintable(button));
        QCOMPARE(focus(), QString("POW"));
        QTest::keyClicks(&field, "-7");
        QCOMPARE(field.text(), QString("-7"));
    }

    void theLineTellsOfTheField_data()
    {
        testColumns<QString, QString>("field", "line");
        testRow("frequency", "FREQ",
                "100 000 … 20 000 000 000 Hz  ·  step 1 000 000 Hz  ·  k, m, g: kilo, mega, giga");
        testRow("power", "POW", "-20 … 20 dBm  ·  step 1 dB");
        testRow("dwell", "Time", "m, s");
        testRow("points", "Step", "step 1");
        testRow("no field", "Output", "");
    }

    void theLineTellsOfTheField()
    {
        QFETCH(QString, field);
        QFETCH(QString, line);
        m_rig->openPanel("open_list");
        m_rig->get(qPrintable(field)).setFocus();
        QVERIFY2(line.isEmpty() ? m_rig->text("field_line").isEmpty()
                                : m_rig->text("field_line").contains(line),
                 qPrintable(m_rig->text("field_line")));
    }

    void theLineFollows()
    {
        const auto line = [this] { return m_rig->text("field_line"); };
        NumberEdit& field = m_rig->get<NumberEdit>("POW");
        field.setFocus();
        const QString range = line();
        field.context().steps.setStep(StepKind::Power, 5);
        // The keypad, which sets the step, takes the focus and gives it back.
        m_rig->click("key_POW");
        QTest::keyClick(m_rig->get("keypad").focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY2(line().contains("step 5 dB"), qPrintable(line()));
        QVERIFY(line() != range);
        m_rig->get<QAction>("action_ceiling").trigger();
        m_rig->get<QLineEdit>("line_ceiling").setText("7");
        m_rig->click("take_ceiling");
        field.setFocus();
        QTRY_VERIFY2(line().contains(" 7 dBm"), qPrintable(line()));
        m_rig->chooseLanguage("ru");
        QVERIFY2(line().contains(QStringLiteral("шаг")), qPrintable(line()));
    }

    void theLineSaysWhyAnEntryIsRefused()
    {
        const auto& line = m_rig->get<QLabel>("field_line");
        NumberEdit& field = m_rig->get<NumberEdit>("POW");
        field.setFocus();
        const QString range = line.text();
        QTest::keyClicks(&field, "1.");
        QCOMPARE(line.text(), QString("whole dBm"));
        QVERIFY(line.property("warning").toBool());
        QTest::keyClick(&field, Qt::Key_Backspace);
        QCOMPARE(line.text(), range);
        QVERIFY(!line.property("warning").toBool());
        QGuiApplication::clipboard()->setText("loud");
        QTest::keySequence(&field, QKeySequence::Paste);
        QCOMPARE(line.text(), QString("\"loud\" cannot be read"));
        QTest::keyClick(&field, Qt::Key_Return);
        QCOMPARE(line.text(), QString("not a number, nothing is sent"));
        m_rig->get("FREQ").setFocus();
        field.setFocus();
        QCOMPARE(line.text(), range);
    }

    void theLineSaysWhatHoldsTheDisplay()
    {
        m_rig->openPanel("open_list");
        m_rig->click("button_Sweep");
        QTRY_VERIFY(!m_rig->get("FREQ").isEnabled());
        QCOMPARE(m_rig->text("field_line"),
                 QString("Frequency and power are set by the sweep: F3"));
        m_rig->get("Time").setFocus();
        QVERIFY(m_rig->text("field_line").contains("step"));
        m_rig->get("button_Sweep").setFocus();
        m_rig->click("button_Sweep");
        QTRY_VERIFY(m_rig->get("FREQ").isEnabled());
        QCOMPARE(m_rig->text("field_line"), QString());
    }

    void theLevelAtTheDevice_data()
    {
        testColumns<QString, int, QString>("offset", "reading", "shown");
        testRow("off", "", 0, "");
        testRow("cable", "-3.2", 0, "-10 dBm, at the device -13.2 dBm");
        testRow("comma", "-3,25", 0, "-10 dBm, at the device -13.25 dBm");
        testRow("amplifier", "20", 1, "-10 dBm, at the device 10 dBm (0.707 V)");
        testRow("millivolts", "", 2, "-10 dBm (70.7 mV)");
        testRow("attenuator", "-60", 2, "-10 dBm, at the device -70 dBm (0.0707 mV)");
        testRow("decibels", "10", 3, "-10 dBm, at the device 0 dBm (107 dBµV)");
    }

    /// Kept for the next start; nothing of it is sent.
    void theLevelAtTheDevice()
    {
        QFETCH(QString, offset);
        QFETCH(int, reading);
        QFETCH(QString, shown);
        m_rig->enter("POW", "-10");
        m_demo->takeCommands();
        m_rig->get<QAction>("action_offset").trigger();
        m_rig->get<QLineEdit>("line_offset").setFocus();
        QTest::keyClicks(m_rig->get("LevelOffset").focusWidget(), offset);
        m_rig->click("take_offset");
        m_rig->get<QAction>(qPrintable(QString("action_reading_%1").arg(reading))).trigger();
        QCOMPARE(m_rig->text("device_level"), shown);
        QCOMPARE(m_demo->takeCommands(), QStringList());
        begin();
        m_rig->enter("POW", "-10");
        QCOMPARE(m_rig->text("device_level"), shown);
    }

    void theLevelFollowsThePower()
    {
        setOffset("-3.2");
        m_rig->enter("POW", "0");
        QCOMPARE(m_rig->text("device_level"), QString("0 dBm, at the device -3.2 dBm"));
        // What is typed and not sent is not at the device.
        QTest::keyClicks(&m_rig->get("POW"), "9");
        QCOMPARE(m_rig->text("device_level"), QString("0 dBm, at the device -3.2 dBm"));
        m_rig->chooseLanguage("ru");
        QVERIFY2(m_rig->text("device_level").contains(QStringLiteral("дБм")),
                 qPrintable(m_rig->text("device_level")));
        m_rig->openPanel("open_list");
        m_rig->click("button_Sweep");
        QTRY_COMPARE(m_rig->text("device_level"), QString());
    }

    void impossibleOffsets_data() { testNames("offset", {"201", "-200.5", "-", ","}); }

    void impossibleOffsets()
    {
        QFETCH(QString, offset);
        setOffset("-3.2");
        m_rig->get<QAction>("action_offset").trigger();
        QCOMPARE(m_rig->text("line_offset"), QString("-3.2"));
        m_rig->get<QLineEdit>("line_offset").setText(offset);
        QVERIFY(!m_rig->get("take_offset").isEnabled());
        m_rig->click("cancel");
        // As by another program's hand.
        m_settings.setValue("Level/offset", offset);
        m_settings.sync();
        begin();
        QCOMPARE(m_rig->text("device_level"), QString());
    }

private:
    QString focus() { return m_rig->window().focusWidget()->objectName(); }

    void setOffset(const QString& decibels)
    {
        m_rig->get<QAction>("action_offset").trigger();
        m_rig->get<QLineEdit>("line_offset").setText(decibels);
        m_rig->click("take_offset");
        // The closed dialog must not be found again.
        QTRY_VERIFY(!m_rig->window().findChild<QWidget*>("LevelOffset"));
    }

    static void turnWheel(QWidget& widget)
    {
        const QPoint at = widget.rect().center();
        QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }
};

QTEST_MAIN(KeyboardTest)
#include "keyboard_test.moc"
