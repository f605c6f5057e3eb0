#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"

#include "app/side_panels.h"
#include "fields/keypad/keypad.h"
#include "service/about_box.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"
#include "ui/error_box.h"

#include <QLineEdit>
#include <QMenu>
#include <QTableWidget>

#include <functional>

namespace
{
const QString off = QStringLiteral("OUTPut OFF\\n");
const QStringList offAlone = {off, "SYSTem:ERRor?\\n"};

bool isRfOn(PanelRig& rig)
{
    return rig.get<QPushButton>("Output").isChecked();
}

void pressKey()
{
    QWindow* window = QGuiApplication::focusWindow();
    QVERIFY(window);
    QTest::keyClick(window, Qt::Key_R, Qt::ControlModifier);
}

void clickButton(PanelRig& rig)
{
    const QWidget& button = rig.get("Output");
    QTest::mouseClick(rig.window().windowHandle(), Qt::LeftButton, {},
                      button.mapTo(&rig.window(), button.rect().center()));
}

void pressSpace(PanelRig& rig)
{
    rig.get("Output").setFocus();
    QTest::keyClick(rig.window().windowHandle(), Qt::Key_Space);
}
} // namespace

/// The RF output can be switched off at once from wherever the user is and whatever goes on, and
/// is never switched on by the same way.
class OutputOffTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init();

    void inAPause_data();
    void inAPause();
    void betweenTheEntriesOfAProfile();
    void isNotSwitchedOnInAReplay();
    void besidesAWindow_data();
    void besidesAWindow();
    void beforeWhatIsBeingTyped();

private:
    void connectWithRf();
    void saveProfile();
    /// Acts as soon as `text` has been sent, in whichever pause that is.
    void actOnceSent(const QString& text, const std::function<void()>& act);

    QStringList m_sentByAct;
    bool m_hasActed = false;
};

void OutputOffTest::init()
{
    PanelTest::init();
    StartOptions options = PanelRig::defaultOptions();
    options.isClean = true;
    m_rig = std::make_unique<PanelRig>(options);
    m_rig->get<QTableWidget>("table_List").setRowCount(70);
    m_hasActed = false;
}

void OutputOffTest::connectWithRf()
{
    m_rig->connectDevice();
    m_rig->click("Output");
    QVERIFY(isRfOn(*m_rig));
}

/// One that differs from the present settings in buttons with pauses and in fields.
void OutputOffTest::saveProfile()
{
    for (const char* name : {"AM", "Pulse"})
        m_rig->get<QAbstractButton>(name).click();
    m_rig->enter("FREQ", "5M");
    m_rig->enter("POW", "-3");
    m_rig->click("profiles");
    QTRY_VERIFY(!SidePanels::moving());
    m_rig->get<QLineEdit>("profile_name").setText("replayed");
    m_rig->click("save_quick");
    for (const char* name : {"AM", "Pulse"})
        m_rig->get<QAbstractButton>(name).click();
    m_rig->enter("FREQ", "6M");
    m_rig->enter("POW", "-4");
}

void OutputOffTest::actOnceSent(const QString& text, const std::function<void()>& act)
{
    whenSent(m_rig->window(), *m_demo, text, [=] {
        m_demo->takeSent();
        act();
        m_sentByAct = m_demo->takeSent();
        m_hasActed = true;
    });
}

void OutputOffTest::inAPause_data()
{
    testColumns<QString, QString, QString, QString>("before", "clicked", "seen", "way");
    const struct {
        const char* tag;
        const char* before;
        const char* clicked;
        const char* seen;
    } rows[] = {
        {"before a modulation goes on", "", "AM", ""},
        {"before its set-up", "", "AM", "AM:STATe ON"},
        {"between two modulations", "AM", "FM", "AM:STATe OFF"},
        {"before the pulse's values", "", "Pulse", "PULM:SOUR INT"},
        {"before LF's shape", "", "sine_select", "LFO:STAT ON"},
        {"before LF's direction", "", "sawPos_select", "SHAP RAMP\\n"},
        {"before a sweep's start", "AM", "button_Sweep", ""},
        {"amid the transfer of a list", "List_is_Checked", "button_List", "LIST:FREQ:ADD"},
        {"amid a calibration", "", "applyCalibrate", "MEM:TABLE:ADD"},
        {"amid a profile", "", "quick_1", "AM:STATe ON"},
    };
    for (const auto& row : rows)
        testRow(row.tag, row.before, row.clicked, row.seen, QString("key"));
    // Nowhere but in a profile does it matter which way.
    for (const char* way : {"click", "space"})
        QTest::addRow("amid a profile: %s", way)
            << QString() << QString("quick_1") << QString("AM:STATe ON") << QString(way);
}

void OutputOffTest::inAPause()
{
    QFETCH(QString, before);
    QFETCH(QString, clicked);
    QFETCH(QString, seen);
    QFETCH(QString, way);
    if (clicked == "quick_1")
        saveProfile();
    if (!before.isEmpty())
        m_rig->get<QPushButton>(qPrintable(before)).click();
    connectWithRf();
    if (clicked == "applyCalibrate") {
        m_rig->click("service");
        QTRY_VERIFY(!SidePanels::moving());
    }
    m_rig->openPanelOf(clicked);
    m_demo->takeTranscript();
    actOnceSent(seen, [&] {
        if (way == "key")
            pressKey();
        else if (way == "click")
            clickButton(*m_rig);
        else
            pressSpace(*m_rig);
    });
    m_rig->click(qPrintable(clicked));
    QTRY_VERIFY(m_hasActed);
    // What a sequence has put into the error queue is read along with it.
    QCOMPARE(m_sentByAct.takeFirst(), off);
    QCOMPARE(m_sentByAct.filter("SYSTem:ERRor?"), m_sentByAct);
    QVERIFY(!isRfOn(*m_rig));
    QTRY_VERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(m_rig->isConnected());
    QVERIFY(m_demo->takeSent().filter("OUTPut").isEmpty());
}

/// Fields are entered without a pause, each for as long as the instrument takes.
void OutputOffTest::betweenTheEntriesOfAProfile()
{
    saveProfile();
    for (const char* name : {"AM", "Pulse"})
        m_rig->get<QAbstractButton>(name).setChecked(true);
    connectWithRf();
    m_demo->takeTranscript();
    actOnceSent("FREQ 5000000", pressKey);
    m_rig->click("quick_1");
    QTRY_VERIFY(m_hasActed);
    QCOMPARE(m_sentByAct, offAlone);
    QVERIFY(!m_demo->takeSent().filter("LFO:AMPLitude").isEmpty());
}

void OutputOffTest::isNotSwitchedOnInAReplay()
{
    saveProfile();
    m_rig->connectDevice();
    m_demo->takeTranscript();
    actOnceSent("AM:STATe ON", [this] {
        pressKey();
        clickButton(*m_rig);
        pressSpace(*m_rig);
    });
    m_rig->click("quick_1");
    QTRY_VERIFY(m_hasActed);
    QCOMPARE(m_sentByAct, QStringList());
    QVERIFY(!isRfOn(*m_rig));
}

void OutputOffTest::besidesAWindow_data()
{
    testColumns<QString>("kind");
    for (const char* kind : {"About", "error", "keypad", "prompt", "menu", "firmware", "file"})
        testRow(kind, QString(kind));
}

void OutputOffTest::besidesAWindow()
{
    QFETCH(QString, kind);
    connectWithRf();
    m_demo->takeTranscript();
    bool isOver = false;
    // A menu or a question has an event loop of its own.
    QTimer::singleShot(100, &m_rig->window(), [&] {
        QVERIFY(QGuiApplication::focusWindow() != m_rig->window().windowHandle() ||
                QApplication::activePopupWidget());
        pressKey();
        QCOMPARE(m_demo->takeSent(), offAlone);
        // Never the other way about.
        pressKey();
        QVERIFY(m_demo->takeSent().isEmpty());
        isOver = true;
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    });
    if (kind == "About")
        m_rig->window().findChild<Form*>()->showAbout();
    else if (kind == "error")
        ErrorBox::report("message", &m_rig->window());
    else if (kind == "keypad")
        m_rig->click("key_FREQ");
    else if (kind == "prompt")
        m_rig->click("butSetModePow");
    else if (kind == "menu")
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F10);
    else if (kind == "firmware")
        m_rig->get<QDialog>("Firmware").show();
    else
        m_rig->get<QPushButton>("open_profile").click();
    QTRY_VERIFY(isOver);
}

void OutputOffTest::beforeWhatIsBeingTyped()
{
    connectWithRf();
    auto& field = m_rig->get<QLineEdit>("FREQ");
    field.setFocus();
    QTest::keyClicks(&field, "7");
    m_demo->takeTranscript();
    clickButton(*m_rig);
    QCOMPARE(m_demo->takeSent(), offAlone);
    QCOMPARE(field.text(), QString("7"));
    QVERIFY(field.hasFocus());
    QVERIFY(field.property("edited").toBool());
    QTest::keyClick(&field, Qt::Key_Return);
    QVERIFY(!m_demo->takeSent().filter("FREQ ").isEmpty());
}

QTEST_MAIN(OutputOffTest)
#include "output_off_test.moc"
