#include "app/side_panels.h"
#include "fields/number_edit.h"
#include "link/instrument_limits.h"
#include "numbers/step_table.h"
#include "tests/app/panel_set_ups.h"
#include "tests/support/installed_driver.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"
#include "ui/files/user_folder.h"

#include <QLabel>
#include <QLineEdit>

/// Profiles of the real window: whatever is set comes back, on the panels and in the instrument.
class ProfilesTest : public PanelTest
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everyControlIsSet();
    void comesBackOnThePanels_data();
    void comesBackOnThePanels();
    void comesBackInTheInstrument_data();
    void comesBackInTheInstrument();
    void neverTouchesTheOutput();
    void keepsTheStateBetweenRuns_data();
    void keepsTheStateBetweenRuns();
    void startsWithTheGivenProfile();
    void startsClean();
    void savingChangesNothingSeen();
    void stopsARun();
    void takesNoClicksMeanwhile();
    void endsInTheMiddle_data();
    void endsInTheMiddle();

private:
    void putAway();
    void begin(const QString& language = QStringLiteral("en"));
    void start(const StartOptions& options);
    void act(const QString& action);
    void apply(const SetUp& setUp);
    QString save(const QString& name);
    void open(const QString& name);
    QByteArray stateBytes();
    Content instrumentState();
    QString indicators();
};

void ProfilesTest::initTestCase()
{
    QApplication::setQuitOnLastWindowClosed(false);
}

/// Ends the program, and gives the instrument time to come back from its mass-storage mode.
void ProfilesTest::putAway()
{
    m_rig.reset();
    m_demo = std::make_unique<Demo>();
}

void ProfilesTest::begin(const QString& language)
{
    putAway();
    StartOptions options = PanelRig::defaultOptions();
    options.language = language;
    m_rig = std::make_unique<PanelRig>(options);
}

/// As the program starts, with what it kept before.
void ProfilesTest::start(const StartOptions& options)
{
    putAway();
    m_rig = std::make_unique<PanelRig>(options);
    m_rig->window().start();
}

/// "Panel/button" or "Panel/field=text". What a closed panel hides is acted on from within.
void ProfilesTest::act(const QString& action)
{
    const QString panelName = action.section('/', 0, 0);
    const QString name = action.section('/', 1).section('=', 0, 0);
    QWidget* panel = &m_rig->window();
    if (panel->objectName() != panelName)
        panel = &m_rig->get(qPrintable(panelName));
    auto* widget = panel->findChild<QWidget*>(name);
    if (!widget)
        qFatal("no %s", qPrintable(action));
    auto* field = qobject_cast<QLineEdit*>(widget);
    if (!field) {
        if (widget->isVisible())
            QTest::mouseClick(widget, Qt::LeftButton);
        else
            qobject_cast<QPushButton*>(widget)->click();
        return;
    }
    if (widget->isVisible()) {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, action.section('=', 1));
        QTest::keyClick(field, Qt::Key_Return);
    } else {
        field->setText(action.section('=', 1));
        emit field->editingFinished();
    }
}

void ProfilesTest::apply(const SetUp& setUp)
{
    for (const QString& action : setUp.actions)
        act(action);
    // Step sizes belong to a set-up as well.
    const double factor = 1.0 + double(QString(setUp.name).size());
    for (int kind = 0; kind < stepKindCount; ++kind) {
        const auto step = static_cast<StepKind>(kind);
        m_rig->get<NumberEdit>("FREQ").context().steps.setStep(
            step, std::min(defaultStep(step) * factor, 90000.0));
    }
}

QString ProfilesTest::save(const QString& name)
{
    m_rig->get<QLineEdit>("profile_name").setText(name);
    m_rig->get<QPushButton>("save_quick").click();
    return userFolder() + "/QUICK_Profile_" + name + ".xml";
}

/// By a click on its button.
void ProfilesTest::open(const QString& name)
{
    for (int number = 1;; ++number) {
        auto& button = m_rig->get<QPushButton>(qPrintable(QString("quick_%1").arg(number)));
        if (button.accessibleName() != name)
            continue;
        if (button.isVisible())
            QTest::mouseClick(&button, Qt::LeftButton);
        else
            button.click();
        return;
    }
}

/// All that a profile would hold now.
QByteArray ProfilesTest::stateBytes()
{
    const QString path = save("state");
    QByteArray bytes = bytesOf(path);
    if (!QFile::remove(path))
        qFatal("not saved");
    return bytes;
}

/// Everything that a profile can bring to an instrument and that makes a difference there: what
/// is off gets its source and waveform when it is switched on, and only ramps have a direction.
Content ProfilesTest::instrumentState()
{
    QStringList queries = commonQueries + pulseQueries + lfQueries;
    for (const QString modulation : {"AM", "FM", "PM"}) {
        queries << modulation + '?';
        for (const QString& query : modulationQueries)
            queries << modulation + ':' + query;
    }
    const QStringList answers = (*m_demo)("ask " + queries.join(";:")).split(';');
    Content state;
    for (int i = 0; i < queries.size(); ++i)
        state[queries[i]] = answers.value(i);
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

QString ProfilesTest::indicators()
{
    QString lit;
    for (const char* name : {"label_AmPmFm", "label_PULM", "label_Gener"}) {
        const QPixmap picture = m_rig->get<QLabel>(name).pixmap(Qt::ReturnByValue);
        lit += picture.isNull() ? "-" : "+";
    }
    return lit + (m_rig->get("label_ExtRef").isEnabled() ? "+" : "-");
}

void ProfilesTest::everyControlIsSet()
{
    begin();
    const QMap<QString, QString> defaults = contentOf(stateBytes());
    QVERIFY(defaults.size() > 80);
    QSet<QString> untouched;
    for (auto it = defaults.begin(); it != defaults.end(); ++it)
        untouched << it.key();
    for (const SetUp& setUp : setUps) {
        begin();
        apply(setUp);
        const QMap<QString, QString> content = contentOf(stateBytes());
        QCOMPARE(content.keys(), defaults.keys());
        for (auto it = content.begin(); it != content.end(); ++it) {
            if (it.value() != defaults[it.key()])
                untouched.remove(it.key());
        }
    }
    // Steps to a point are over at once.
    QStringList names = untouched.values();
    names.sort();
    QCOMPARE(names,
             QStringList({"KLV/QUICK_Profile_KLV", "List/left_select", "List/right_select"}));
}

void ProfilesTest::comesBackOnThePanels_data()
{
    testColumns<int, int, QString>("setUp", "other", "language");
    const int count = int(std::size(setUps));
    for (int i = 0; i < count; ++i) {
        for (const char* language : {"en", "ru"}) {
            const int other = (i + 1) % count;
            QTest::addRow("%s after %s, %s", setUps[i].name, setUps[other].name, language)
                << i << other << language;
        }
    }
    testRow("from long to short pulses", 1, 0, "en");
    testRow("from short to long pulses", 2, 1, "en");
}

void ProfilesTest::comesBackOnThePanels()
{
    QFETCH(int, setUp);
    QFETCH(int, other);
    QFETCH(QString, language);
    begin(language);
    apply(setUps[setUp]);
    const QByteArray state = stateBytes();
    const QString lit = indicators();
    save("it");

    begin(language);
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
    QCOMPARE((*m_demo)("transcript").count('>'), 0);
}

void ProfilesTest::comesBackInTheInstrument_data()
{
    testColumns<int, int, QString>("setUp", "other", "language");
    testRow("AM after FM", 0, 1, "en");
    testRow("FM after PM", 1, 2, "ru");
    testRow("PM after LF", 2, 3, "en");
    testRow("LF after AM", 3, 0, "ru");
    testRow("sine after square", 4, 3, "en");
}

void ProfilesTest::comesBackInTheInstrument()
{
    QFETCH(int, setUp);
    QFETCH(int, other);
    QFETCH(QString, language);
    begin(language);
    m_rig->connectDevice();
    apply(setUps[setUp]);
    save("it");
    // What is off has not been sent yet, but is by a profile; the answers are shown.
    open("it");
    const Content state = contentOf(stateBytes());
    const Content instrument = instrumentState();

    begin(language);
    m_rig->connectDevice();
    apply(setUps[other]);
    QVERIFY(instrumentState() != instrument);
    open("it");
    QVERIFY(m_rig->isConnected());
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(m_rig->status().right(3), QString(" it"));
    QCOMPARE(differences(contentOf(stateBytes()), state), QStringList());
    QCOMPARE(differences(instrumentState(), instrument), QStringList());
}

void ProfilesTest::neverTouchesTheOutput()
{
    begin();
    m_rig->connectDevice();
    m_rig->click("Output");
    const QString path = save("on");
    QVERIFY(!contentOf(bytesOf(path)).contains("MainWindow/Output"));
    m_rig->click("Output");
    m_demo->takeSent();
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<KLV><MainWindow><Output>ON</Output><connect>OFF</connect><open_mod>ON</open_mod>"
               "<closeWindow>ON</closeWindow></MainWindow><List><button_Sweep>ON</button_Sweep>"
               "</List></KLV>");
    file.close();
    open("on");
    QVERIFY(m_rig->status().contains("applied"));
    QCOMPARE(m_demo->takeSent(), QStringList());
    QVERIFY(m_rig->isConnected());
    QVERIFY(!m_rig->get<QPushButton>("Output").isChecked());
    QVERIFY(!SidePanels::moving());
}

void ProfilesTest::keepsTheStateBetweenRuns_data()
{
    testColumns<int>("setUp");
    for (int i = 0; i < 4; ++i)
        testRow(setUps[i].name, i);
}

void ProfilesTest::keepsTheStateBetweenRuns()
{
    QFETCH(int, setUp);
    const InstalledDriver driver;
    start(PanelRig::defaultOptions());
    QTRY_VERIFY(m_rig->isConnected() && !QGuiApplication::overrideCursor());
    m_rig->click("Output");
    apply(setUps[setUp]);
    const QByteArray state = stateBytes();
    m_rig->click("Output");
    const Content instrument = instrumentState();
    m_rig->click("Output");
    m_rig.reset();
    m_settings.clear();

    start(PanelRig::defaultOptions());
    // Without an instrument so far, and therefore without a word.
    QCOMPARE(m_demo->takeSent(), QStringList());
    QCOMPARE(stateBytes(), state);
    QVERIFY(!m_rig->get<QPushButton>("Output").isChecked());
    QTRY_VERIFY(m_rig->isConnected() && !QGuiApplication::overrideCursor());
    // What is off is sent when it is switched on.
    const Content restored = instrumentState();
    for (const char* always : {"FREQ?", "POW?", "OUTP?", "ROSC:SOUR?", "AM:STAT?", "FM:STAT?",
                               "PM:STAT?", "PULM:STAT?", "LFO:STAT?"}) {
        QVERIFY(restored.contains(always));
        QCOMPARE(restored[always], instrument[always]);
    }
}

void ProfilesTest::startsWithTheGivenProfile()
{
    begin();
    m_rig->enter("FREQ", "7M");
    const QString path = save("given");
    StartOptions options = PanelRig::defaultOptions();
    options.profilePath = path;
    start(options);
    QCOMPARE(m_rig->get<QLineEdit>("FREQ").text(), QString("7 000 000"));

    // Instead of what was kept.
    m_rig->enter("FREQ", "8M");
    start(options);
    QCOMPARE(m_rig->get<QLineEdit>("FREQ").text(), QString("7 000 000"));
    options.profilePath = path + ".gone";
    start(options);
    QVERIFY(m_rig->status().contains("QUICK_Profile_given.xml.gone"));
    QCOMPARE(m_rig->get<QLineEdit>("FREQ").text(), QString("1 000 000 000"));
}

void ProfilesTest::startsClean()
{
    start(PanelRig::defaultOptions());
    m_rig->enter("FREQ", "7M");
    // What is half typed at the end is not kept.
    m_rig->get<QLineEdit>("FREQ").selectAll();
    QTest::keyClicks(&m_rig->get("FREQ"), "9");
    StartOptions options = PanelRig::defaultOptions();
    options.isClean = true;
    start(options);
    QCOMPARE(m_rig->get<QLineEdit>("FREQ").text(), QString("1 000 000 000"));
    m_rig->enter("FREQ", "8M");
    start(PanelRig::defaultOptions());
    QCOMPARE(m_rig->get<QLineEdit>("FREQ").text(), QString("7 000 000"));

    // A damaged file leaves the defaults, too, and that is said.
    m_rig.reset();
    QFile last(userFolder() + "/QUICK_Profile_last.xml");
    QVERIFY(last.resize(last.size() / 2));
    start(PanelRig::defaultOptions());
    QVERIFY(m_rig->status().contains("damaged"));
    QCOMPARE(m_rig->get<QLineEdit>("FREQ").text(), QString("1 000 000 000"));
}

/// Units and what is half typed stay; the file holds microseconds and what was accepted.
void ProfilesTest::savingChangesNothingSeen()
{
    begin();
    m_rig->enter("FREQ", "7M");
    act("Modulat/us_per");
    const QString period = m_rig->get<QLineEdit>("line_period").text();
    m_rig->get<QLineEdit>("FREQ").selectAll();
    QTest::keyClicks(&m_rig->get("FREQ"), "9");
    QFile file(save("seen"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.contains("<FREQ>7 000 000 0</FREQ>"));
    QVERIFY(bytes.contains("<line_period>1 000 0</line_period>"));
    QCOMPARE(m_rig->get<QLineEdit>("FREQ").text(), QString("9"));
    QCOMPARE(m_rig->get<QLineEdit>("line_period").text(), period);
    QCOMPARE(m_rig->get<QPushButton>("us_per").text(), QString("ms"));
}

void ProfilesTest::stopsARun()
{
    begin();
    m_rig->connectDevice();
    save("still");
    m_rig->get<QPushButton>("button_Sweep").click();
    QVERIFY(m_rig->get<QPushButton>("button_Sweep").isChecked());
    QVERIFY(!m_rig->get("FREQ").isEnabled());
    open("still");
    QVERIFY(!m_rig->get<QPushButton>("button_Sweep").isChecked());
    QVERIFY(m_rig->get("FREQ").isEnabled());
    QCOMPARE((*m_demo)("ask FREQ:MODE?;:TRIG:STAT?"), QString("FIX;IDLE"));
}

void ProfilesTest::takesNoClicksMeanwhile()
{
    begin();
    save("off");
    m_rig->connectDevice();
    act("Modulat/AM");
    m_demo->takeSent();
    bool isDone = false;
    when(m_rig->window(), QGuiApplication::overrideCursor, [&] {
        QVERIFY(m_rig->status().contains("Applying"));
        const QWidget& output = m_rig->get("Output");
        const QPoint position = output.mapTo(&m_rig->window(), output.rect().center());
        QTest::mouseClick(m_rig->window().windowHandle(), Qt::LeftButton, {}, position);
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_1, Qt::ControlModifier);
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_D, Qt::ControlModifier);
        isDone = true;
    });
    open("off");
    QVERIFY(isDone);
    QVERIFY(m_rig->isConnected());
    QVERIFY(!m_rig->get<QPushButton>("Output").isChecked());
    QCOMPARE(m_demo->takeSent().count("AM:STATe OFF\\n"), 1);
    QVERIFY(!QGuiApplication::overrideCursor());
    m_rig->click("Output");
    QVERIFY(m_rig->get<QPushButton>("Output").isChecked());
}

void ProfilesTest::endsInTheMiddle_data()
{
    testColumns<QString>("ending");
    testRow("cable pulled", "unplug");
    testRow("window closed", "closeWindow");
    testRow("window closed by key", "Ctrl+Q");
}

void ProfilesTest::endsInTheMiddle()
{
    QFETCH(QString, ending);
    begin();
    apply(setUps[3]);
    save("it");
    act("generator/rectangle_select");
    act("Modulat/AM");
    act("Modulat/Pulse");
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
    QVERIFY(!m_rig->get<QPushButton>("rectangle_select").isChecked());
    if (ending == "closeWindow")
        QCOMPARE(m_demo->takeTranscript(), QStringList());
}

QTEST_MAIN(ProfilesTest)
#include "profiles_test.moc"
