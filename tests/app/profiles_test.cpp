#include "app/side_panels.h"
#include "link/activity.h"
#include "tests/app/panel_set_ups.h"
#include "tests/support/files.h"
#include "tests/support/installed_driver.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"
#include "ui/files/user_folder.h"

#include <QLineEdit>
#include <QTableWidget>

/// Profiles of the real window: whatever is set comes back, on the panels and in the instrument.
class ProfilesTest : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

    void everyControlIsSet()
    {
        beginAnew();
        const Content defaults = contentOf(stateBytes());
        QVERIFY(defaults.size() > 80);
        // It stands beside its picture, and is still a setting of the list panel.
        QVERIFY(defaults.contains("List/logarithmicFrequency"));
        QStringList untouched = defaults.keys();
        for (const SetUp& setUp : setUps) {
            beginAnew();
            apply(setUp);
            const Content content = contentOf(stateBytes());
            QCOMPARE(content.keys(), defaults.keys());
            for (const QString& name : content.keys()) {
                if (content[name] != defaults[name])
                    untouched.removeOne(name);
            }
        }
        // Steps to a point are over at once.
        QCOMPARE(untouched,
                 QStringList({"KLV/QUICK_Profile_KLV", "List/left_select", "List/right_select"}));
    }

    void comesBackOnThePanels()
    {
        const auto row = freshRows(this, [this](int setUp, int other, const QString& language) {
            beginAnew(language);
            apply(setUps[setUp]);
            const QByteArray state = stateBytes();
            const QString lit = indicators();
            m_rig->saveProfile("it");

            beginAnew(language);
            apply(setUps[other]);
            QVERIFY(stateBytes() != state);
            open("it");
            QCOMPARE(stateBytes(), state);
            QCOMPARE(indicators(), lit);
            for (const char* panel : {"display", "Modulat", "generator", "List"}) {
                const auto fields = m_rig->get(panel).findChildren<QLineEdit*>();
                for (const QLineEdit* field : fields)
                    QVERIFY2(!field->property("edited").toBool(), qPrintable(field->objectName()));
            }
            QCOMPARE(m_demo->takeSent(), QStringList());
        });
        const int count = int(std::size(setUps));
        for (int i = 0; i < count; ++i) {
            for (const char* language : {"en", "ru"})
                row(QString("%1, %2").arg(setUps[i].name, language), i, (i + 1) % count, language);
        }
        row("from long to short pulses", 1, 0, "en");
        row("from short to long pulses", 2, 1, "en");
    }

    void comesBackInTheInstrument()
    {
        const auto row = freshRows(this, [this](int setUp, int other, const QString& language) {
            beginAnew(language);
            m_rig->connectDevice();
            apply(setUps[setUp]);
            m_rig->saveProfile("it");
            // What is off has not been sent yet, but is by a profile; the answers are shown.
            open("it");
            const Content state = contentOf(stateBytes());
            const Content instrument = instrumentState();

            beginAnew(language);
            m_rig->connectDevice();
            apply(setUps[other]);
            QVERIFY(instrumentState() != instrument);
            open("it");
            QVERIFY(m_rig->isConnected());
            QVERIFY(!QGuiApplication::overrideCursor());
            QCOMPARE(m_rig->status().right(3), QString(" it"));
            QCOMPARE(differences(contentOf(stateBytes()), state), QStringList());
            QCOMPARE(differences(instrumentState(), instrument), QStringList());
        });
        row("AM after FM", 0, 1, "en");
        row("FM after PM", 1, 2, "ru");
        row("PM after LF", 2, 3, "en");
        row("LF after AM", 3, 0, "ru");
        row("sine after square", 4, 3, "en");
    }

    void neverTouchesTheOutput()
    {
        beginConnected();
        m_rig->click("Output");
        const QString file = m_rig->saveProfile("on");
        QVERIFY(bytesOf(file).contains("FREQ") && !bytesOf(file).contains("Output"));
        m_rig->click("Output");
        m_demo->takeSent();
        writeFile(
            file,
            "<KLV><MainWindow><Output>ON</Output><connect>OFF</connect><open_mod>ON</open_mod>"
            "<closeWindow>ON</closeWindow></MainWindow><List><button_Sweep>ON</button_Sweep>"
            "</List></KLV>");
        open("on");
        QVERIFY(m_rig->status().contains("applied"));
        QCOMPARE(m_demo->takeSent(), QStringList());
        QVERIFY(m_rig->isConnected());
        QVERIFY(!m_rig->isChecked("Output"));
        QVERIFY(!SidePanels::moving());
    }

    // Its switch stays where it is, so that no click sends it.
    void sendsAnotherReference()
    {
        beginConnected();
        m_rig->click("ROSC");
        for (const char* frequencyMHz : {"25", "33"}) {
            m_rig->click("open_ROSC_FREQ");
            m_rig->enter("ROSC_FREQ", frequencyMHz);
            m_rig->saveProfile(frequencyMHz);
        }
        open("25");
        QCOMPARE(m_rig->text("ROSC"), QString("25 MHz"));
        QCOMPARE((*m_demo)("ask ROSC:EXT:FREQ?").trimmed(), QString("25 MHZ"));
    }

    void keepsTheStateBetweenRuns()
    {
        const auto row = freshRows(this, [this](int setUp) {
            const InstalledDriver driver;
            startProgram();
            QTRY_VERIFY(m_rig->isConnected() && !QGuiApplication::overrideCursor());
            m_rig->click("Output");
            apply(setUps[setUp]);
            const QByteArray state = stateBytes();
            m_rig->click("Output");
            const Content instrument = instrumentState();
            m_rig->click("Output");
            m_rig.reset();
            m_settings.clear();

            startProgram();
            // Without an instrument so far, and therefore without a word.
            QCOMPARE(m_demo->takeSent(), QStringList());
            QCOMPARE(stateBytes(), state);
            QVERIFY(!m_rig->isChecked("Output"));
            QTRY_VERIFY(m_rig->isConnected() && !QGuiApplication::overrideCursor());
            // What is off is sent when it is switched on.
            const Content restored = instrumentState();
            for (const char* always : {"FREQ?", "POW?", "OUTP?", "ROSC:SOUR?", "AM:STAT?",
                                       "FM:STAT?", "PM:STAT?", "PULM:STAT?", "LFO:STAT?"}) {
                QVERIFY(restored.contains(always));
                QCOMPARE(restored[always], instrument[always]);
            }
        });
        for (int i = 0; i < 4; ++i)
            row(setUps[i].name, i);
    }

    void startsWithTheGivenProfile()
    {
        beginAnew();
        m_rig->enter("FREQ", "7M");
        StartOptions options = PanelRig::defaultOptions();
        options.profilePath = m_rig->saveProfile("given");
        startProgram(options);
        QCOMPARE(m_rig->text("FREQ"), QString("7 000 000"));
        // Instead of what was kept.
        m_rig->enter("FREQ", "8M");
        startProgram(options);
        QCOMPARE(m_rig->text("FREQ"), QString("7 000 000"));
        options.profilePath += ".gone";
        startProgram(options);
        QVERIFY(m_rig->status().contains("QUICK_Profile_given.xml.gone"));
        QCOMPARE(m_rig->text("FREQ"), QString("1 000 000 000"));
    }

    void startsClean()
    {
        const auto table = [this]() -> QTableWidget& {
            return m_rig->get<QTableWidget>("table_List");
        };
        startProgram();
        m_rig->enter("FREQ", "7M");
        table().setRowCount(2);
        // What is half typed at the end is not kept.
        typeOver("FREQ");
        StartOptions options = PanelRig::defaultOptions();
        options.isClean = true;
        startProgram(options);
        QCOMPARE(m_rig->text("FREQ"), QString("1 000 000 000"));
        QCOMPARE(table().rowCount(), 0);
        m_rig->enter("FREQ", "8M");
        table().setRowCount(5);
        startProgram();
        QCOMPARE(m_rig->text("FREQ"), QString("7 000 000"));
        QCOMPARE(table().rowCount(), 2);
        // A damaged file leaves the defaults, too, and that is said.
        m_rig.reset();
        QFile last(userFolder() + "/QUICK_Profile_last.xml");
        QVERIFY(last.resize(last.size() / 2));
        startProgram();
        QVERIFY(m_rig->status().contains("damaged"));
        QCOMPARE(m_rig->text("FREQ"), QString("1 000 000 000"));
    }

    /// Units and what is half typed stay; the file holds microseconds and what was accepted.
    void savingChangesNothingSeen()
    {
        beginAnew();
        m_rig->enter("FREQ", "7M");
        act("Modulat/us_per");
        const QString period = m_rig->text("line_period");
        typeOver("FREQ");
        const Content content = contentOf(stateBytes());
        QCOMPARE(content["MainWindow/FREQ"], QString("7000000 0"));
        QCOMPARE(content["Modulat/line_period"], QString("1000 0"));
        QCOMPARE(m_rig->text("FREQ"), QString("9"));
        QCOMPARE(m_rig->text("line_period"), period);
        QCOMPARE(m_rig->text("us_per"), QString("ms"));
    }

    void marksWhatDiffers()
    {
        const auto row = freshRows(this, [this](const QString& actions, const QString& expected) {
            beginConnected();
            m_rig->enter("FREQ", "7M");
            m_rig->saveProfile("it");
            m_rig->enter("FREQ", "8M");
            open("it");
            m_demo->takeTranscript();
            const auto mark = [this] {
                return QString(m_rig->get("quick_1").property("lit").toBool() ? "it" : "") +
                       (m_rig->get("differs_1").isHidden() ? "" : ", differs");
            };
            QCOMPARE(mark(), QString("it"));
            // Looking sends nothing.
            QCoreApplication::processEvents();
            QCOMPARE(m_demo->takeTranscript(), QStringList());
            for (const QString& action : actions.split(' ', Qt::SkipEmptyParts))
                act(action);
            QTRY_VERIFY(Activities::global().texts().isEmpty());
            QCoreApplication::processEvents();
            QCOMPARE(mark(), expected);
            // A key alone is no setting, until it is accepted.
            typeOver("FREQ");
            QCoreApplication::processEvents();
            QCOMPARE(mark(), expected);
            QTest::keyClick(&m_rig->get("FREQ"), Qt::Key_Return);
            QTRY_COMPARE(mark(), QString("it, differs"));
        });
        // What is done, and how the button of the profile is marked then.
        row("nothing", "", "it");
        row("another unit", "Modulat/us_per", "it");
        row("a panel, a fold, the output", "MainWindow/open_mod Modulat/fold_AM_ MainWindow/Output",
            "it");
        row("a value", "MainWindow/FREQ=5", "it, differs");
        row("the value it has", "MainWindow/FREQ=7M", "it");
        row("there and back", "Modulat/AM Modulat/AM", "it");
        row("the reference", "MainWindow/ROSC", "it, differs");
        row("of the other kind", "List/Freq_Pow=-3", "it, differs");
    }

    void stopsARun()
    {
        beginConnected();
        m_rig->saveProfile("still");
        m_rig->clickAll("button_Sweep");
        QVERIFY(m_rig->isChecked("button_Sweep"));
        open("still");
        QVERIFY(!m_rig->isChecked("button_Sweep"));
        QVERIFY(m_rig->get("FREQ").isEnabled());
        QCOMPARE((*m_demo)("ask FREQ:MODE?;:TRIG:STAT?"), QString("FIX;IDLE"));
    }

    void takesNoClicksMeanwhile()
    {
        beginAnew();
        m_rig->saveProfile("off");
        m_rig->connectDevice();
        act("Modulat/AM");
        m_rig->get("FREQ").setFocus();
        m_demo->takeSent();
        bool isDone = false;
        when(m_rig->window(), QGuiApplication::overrideCursor, [&] {
            const QWidget& output = m_rig->get("Output");
            QWindow* window = m_rig->window().windowHandle();
            for (const Qt::Key key : {Qt::Key_7, Qt::Key_Return})
                QTest::keyClick(window, key);
            QTest::mouseClick(window, Qt::LeftButton, {},
                              output.mapTo(&m_rig->window(), output.rect().center()));
            QTest::keyClick(window, Qt::Key_1, Qt::ControlModifier);
            QTest::keyClick(window, Qt::Key_D, Qt::ControlModifier);
            isDone = m_rig->text("FREQ") == "1 000 000 000";
        });
        open("off");
        QVERIFY(isDone);
        QVERIFY(m_rig->isConnected());
        QVERIFY(!m_rig->isChecked("Output"));
        QCOMPARE(m_demo->takeCommands().filter("AM:STATe OFF").size(), 1);
        QVERIFY(!QGuiApplication::overrideCursor());
        m_rig->click("Output");
        QVERIFY(m_rig->isChecked("Output"));
    }

    void endsInTheMiddle_data() { testNames("ending", {"unplug", "closeWindow", "Ctrl+Q"}); }

    void endsInTheMiddle()
    {
        QFETCH(QString, ending);
        beginAnew();
        apply(setUps[3]);
        m_rig->saveProfile("it");
        m_rig->clickAll("rectangle_select AM Pulse");
        m_rig->connectDevice();
        when(m_rig->window(), QGuiApplication::overrideCursor, [&] {
            if (ending == "unplug")
                (*m_demo)(ending);
            else if (ending == "Ctrl+Q")
                QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_Q, Qt::ControlModifier);
            else
                m_rig->click(qPrintable(ending));
            m_demo->takeTranscript();
        });
        open("it");
        QTRY_VERIFY(!m_rig->isConnected());
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(m_rig->status().contains("partly") || ending == "unplug");
        // It has not gone on to the generator.
        QVERIFY(!m_rig->isChecked("rectangle_select"));
        if (ending == "closeWindow")
            QCOMPARE(m_demo->takeTranscript(), QStringList());
    }

private:
    /// A window after the end of the one before, over an instrument that had the time to come back
    /// from its mass-storage mode.
    void beginAnew(const QString& language = QStringLiteral("en"))
    {
        StartOptions options = PanelRig::defaultOptions();
        options.language = language;
        m_rig.reset();
        m_demo = std::make_unique<Demo>();
        begin(options);
    }

    /// The same as the program starts, with what it kept before.
    void startProgram(const StartOptions& options = PanelRig::defaultOptions())
    {
        m_rig.reset();
        m_demo = std::make_unique<Demo>();
        begin(options);
        m_rig->window().start();
    }

    /// "Panel/button" or "Panel/field=text". What a closed panel hides is acted on from within.
    void act(const QString& action)
    {
        const QString panelName = action.section('/', 0, 0);
        const QString name = action.section('/', 1).section('=', 0, 0);
        QWidget* panel = &m_rig->window();
        if (panel->objectName() != panelName)
            panel = &m_rig->get(qPrintable(panelName));
        if (auto* button = panel->findChild<QAbstractButton*>(name)) {
            button->click();
            return;
        }
        auto* field = panel->findChild<QLineEdit*>(name);
        if (!field)
            qFatal("no %s", qPrintable(action));
        field->setText(action.section('=', 1));
        emit field->editingFinished();
    }

    void apply(const SetUp& setUp)
    {
        for (const QString& action : QString(setUp.actions).split(' '))
            act(action);
        // Step sizes belong to a set-up as well.
        const double factor = 1.0 + double(QString(setUp.name).size());
        for (int kind = 0; kind < stepKindCount; ++kind) {
            const auto step = static_cast<StepKind>(kind);
            m_rig->get<NumberEdit>("FREQ").context().steps.setStep(
                step, std::min(defaultStep(step) * factor, 90000.0));
        }
    }

    void typeOver(const char* name)
    {
        m_rig->get(name).setFocus();
        m_rig->get<QLineEdit>(name).selectAll();
        QTest::keyClicks(&m_rig->get(name), "9");
    }

    /// By a click on its button.
    void open(const QString& name)
    {
        int number = 1;
        const auto button = [&] { return QString("quick_%1").arg(number); };
        while (m_rig->get(qPrintable(button())).accessibleName() != name)
            ++number;
        m_rig->clickAll(button());
    }

    /// All that a profile would hold now.
    QByteArray stateBytes()
    {
        const QString file = m_rig->saveProfile("state");
        const QByteArray bytes = bytesOf(file);
        QFile::remove(file);
        return bytes;
    }

    /// Everything that a profile can bring to an instrument and that makes a difference there: what
    /// is off gets its source and waveform when it is switched on, and only ramps have a direction.
    Content instrumentState()
    {
        QString queries = "FREQ? POW? OUTP? ROSC:SOUR? ROSC:EXT:FREQ? PULM:STAT? PULM:SOUR? "
                          "PULM:INT:PER? PULM:INT:PWID? LFO:STAT? LFO:AMPL?";
        for (const char* modulation : {"AM", "FM", "PM"})
            queries += QString(" %1? %1:STAT? %1:SOUR?").arg(modulation);
        for (const char* source : {"AM:INT", "FM:INT", "PM:INT", "LFO"})
            queries += QString(" %1:FUNC:FREQ? %1:FUNC:SHAP? %1:FUNC:SHAP:RAMP? "
                               "%1:FUNC:SHAP:SQU:DUTY?")
                           .arg(source);
        const QStringList names = queries.split(' ');
        const QStringList answers = (*m_demo)("ask " + names.join(";:")).split(';');
        Content state;
        for (int i = 0; i < names.size(); ++i)
            state[names[i]] = answers.value(i);
        for (const QString header : {"AM:INT", "FM:INT", "PM:INT", "LFO"}) {
            if (state[header + ":FUNC:SHAP?"] != "RAMP")
                state.remove(header + ":FUNC:SHAP:RAMP?");
        }
        for (const QString header : {"AM", "FM", "PM"}) {
            if (state[header + ":STAT?"] == "0")
                state.remove(header + ":SOUR?");
        }
        if (state["LFO:STAT?"] == "0") {
            state.remove("LFO:FUNC:SHAP?");
            state.remove("LFO:FUNC:SHAP:RAMP?");
        }
        return state;
    }

    QString indicators()
    {
        return m_rig->indicators() + (m_rig->get("label_ExtRef").isEnabled() ? " external" : "");
    }
};

QTEST_MAIN(ProfilesTest)
#include "profiles_test.moc"
