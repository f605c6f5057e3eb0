#include "app/side_panels.h"
#include "fields/keypad/keypad.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QTableWidget>
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

    /// The field is left and committed first, as by any click; then it is stepped further.
    void aClickLeavesTheFocusInTheField()
    {
        const auto row = freshRows(this, [this](const QString& button, const QString& sent) {
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
        });
        row("RF", "Output", "OUTPut ON!");
        row("reference", "ROSC", "ROSCillator:SOURce EXTernal!");
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

    void labelsKeepTheirNames()
    {
        for (const char* name :
             {"Box_modulation", "titleModulation", "titleFM", "titlePM", "label_3", "label_4",
              "label_8", "label_9", "label_10", "name_generator", "title_Sweep", "label_Freq_Pow",
              "label_Start", "label_Stop", "label_Step", "label_Time"})
            QVERIFY2(m_rig->window().findChild<QWidget*>(name), name);
    }

    /// Each field and its buttons, by name or caption.
    void everyButtonOpensTheKeypadOfItsField()
    {
        const auto check = [this](const char* clicks, const char* panel, const QStringList& rows) {
            m_rig->clickAll(clicks);
            QTRY_VERIFY(!SidePanels::moving());
            for (const QString& row : rows) {
                for (const QString& name : row.section('=', 1).split(' ')) {
                    for (auto* button : m_rig->get(panel).findChildren<QAbstractButton*>()) {
                        if (button->objectName() == name || button->text() == name)
                            button->click();
                    }
                    auto& keypad = m_rig->get<Keypad>("keypad");
                    QVERIFY2(keypad.isVisible(), qPrintable(name));
                    QCOMPARE(keypad.field()->objectName(), row.section('=', 0, 0));
                    QVERIFY(m_rig->get(panel).isAncestorOf(keypad.field()));
                    keypad.close();
                }
            }
        };
        check("", "display", {"FREQ=key_FREQ", "POW=key_POW"});
        check("open_mod fold_AM_ Rect_Ampl", "Modulat",
              {"line_period=pulse_period", "line_width=pulse_width",
               "line_Ampl_1=Ampl_F pushButton", "line_Ampl_2=Ampl_depth pushButton_2",
               "percentLine_Ampl=percentButton_Ampl pushButton_7"});
        check("fold_FM_ Rect_FREQ", "Modulat",
              {"line_FREQ_1=FREQ_T pushButton_3", "line_FREQ_2=FREQ_Dev pushButton_4",
               "percentLine_FREQ=percentButton_FREQ pushButton_8"});
        check("fold_PM_ Rect_Phase", "Modulat",
              {"line_Phase_1=Phase_T pushButton_5", "line_Phase_2=Phase_Dev pushButton_6",
               "percentLine_Phase=percentButton_Phase pushButton_9"});
        check("open_gener rectangle_select", "generator",
              {"FREQ=Frequency", "VOLTAGE=Magnitude", "percent=vvod_Percent"});
        check("open_list", "List",
              {"Freq_Pow=key_Freq_Pow", "Start=key_Start", "Stop=key_Stop", "Step=key_Step",
               "Time=key_Time"});
        check("service", "service_panel", {"REF_OSC=key_REF_OSC"});
    }

    void aPanelTakesTheFocusAndGivesItBack()
    {
        const auto row = freshRows(this, [this](const QString& button, const QString& first) {
            NumberEdit& field = m_rig->get<NumberEdit>("POW");
            field.setFocus();
            m_rig->openPanel(qPrintable(button));
            QCOMPARE(focus(), first);
            m_rig->openPanel(qPrintable(button));
            QCOMPARE(focus(), QString("POW"));
            QTest::keyClicks(&field, "-7");
            QCOMPARE(field.text(), QString("-7"));
        });
        row("modulation", "open_mod", "AM");
        row("sweep", "open_list", "List_is_Checked");
        row("LF generator", "open_gener", "sine_select");
        row("service", "service", "REF_OSC");
    }

    void aModulationIsSetByKeys()
    {
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F2);
        keys({Qt::Key_Space});
        QString sent;
        QTRY_VERIFY2((sent += m_demo->takeCommands().join('\n')).contains("SQU:DUTY?"),
                     qPrintable(sent));
        keys({Qt::Key_Down, Qt::Key_2, Qt::Key_K, Qt::Key_Return, Qt::Key_Tab, Qt::Key_3, Qt::Key_0,
              Qt::Key_Return});
        QCOMPARE(m_demo->takeCommands(), QStringList({"AM:INT:FUNC:FREQ 2000 Hz",
                                                      "AM:INT:FUNC:FREQ?", "AM 30.000000;AM?!"}));
        // The shapes are one stop, at the one that is checked.
        keys({Qt::Key_Backtab, Qt::Key_Backtab});
        QCOMPARE(focus(), QString("Sin_Ampl"));
        keys({Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left});
        QCOMPARE(focus(), QString("Triangle_Ampl"));
        QCOMPARE(m_demo->takeCommands(), QStringList());
        keys({Qt::Key_Tab, Qt::Key_Backtab});
        QCOMPARE(focus(), QString("Triangle_Ampl"));
    }

    /// From wherever the focus is, once the list is shown.
    void theListIsMadeByKeys()
    {
        m_rig->openPanel("open_list");
        for (const int made : {0, 100}) {
            QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_G, Qt::ControlModifier);
            QCOMPARE(m_rig->get<QTableWidget>("table_List").rowCount(), made);
            keys({Qt::Key_Space});
        }
    }

    void theLineTellsOfTheField()
    {
        const auto row = freshRows(this, [this](const QString& field, const QString& line) {
            m_rig->openPanel("open_list");
            m_rig->get(qPrintable(field)).setFocus();
            QVERIFY2(line.isEmpty() ? m_rig->text("field_line").isEmpty()
                                    : m_rig->text("field_line").contains(line),
                     qPrintable(m_rig->text("field_line")));
        });
        row("frequency", "FREQ",
            "100 000 … 20 000 000 000 Hz  ·  step 1 000 000 Hz  ·  k, m, g: kilo, mega, giga");
        row("power", "POW", "-20 … 20 dBm  ·  step 1 dB");
        row("dwell", "Time", "m, s");
        row("points", "Step", "step 1");
        row("no field", "Output", "");
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
        m_rig->choose("ru");
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

    /// Kept for the next start; nothing of it is sent.
    void theLevelAtTheDevice()
    {
        const auto row = freshRows(this, [this](const QString& offset, int reading,
                                                const QString& shown) {
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
        });
        row("off", "", 0, "");
        row("cable", "-3.2", 0, "-10 dBm, at the device -13.2 dBm");
        row("comma", "-3,25", 0, "-10 dBm, at the device -13.25 dBm");
        row("amplifier", "20", 1, "-10 dBm, at the device 10 dBm (0.707 V)");
        row("millivolts", "", 2, "-10 dBm (70.7 mV)");
        row("attenuator", "-60", 2, "-10 dBm, at the device -70 dBm (0.0707 mV)");
        row("decibels", "10", 3, "-10 dBm, at the device 0 dBm (107 dBµV)");
    }

    void theLevelFollowsThePower()
    {
        setOffset("-3.2");
        m_rig->enter("POW", "0");
        QCOMPARE(m_rig->text("device_level"), QString("0 dBm, at the device -3.2 dBm"));
        // What is typed and not sent is not at the device.
        QTest::keyClicks(&m_rig->get("POW"), "9");
        QCOMPARE(m_rig->text("device_level"), QString("0 dBm, at the device -3.2 dBm"));
        m_rig->choose("ru");
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
    void keys(const QVector<Qt::Key>& keys)
    {
        for (const Qt::Key key : keys)
            QTest::keyClick(m_rig->window().windowHandle(), key);
    }

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
