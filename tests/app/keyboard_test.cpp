#include "fields/number_edit.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QWheelEvent>

/// Where the focus goes, and what is said about the field that has it.
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

private:
    QString focus() { return m_rig->window().focusWidget()->objectName(); }

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
