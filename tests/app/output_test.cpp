#include "service/about_box.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"
#include "ui/error_box.h"

#include <QLineEdit>

namespace
{
const QStringList offAlone = {"OUTPut OFF!"};

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

/// An I/O error; nothing reaches the wire.
const QString nextCallFails = QStringLiteral("fault 1 status 0xBFFF003E");
} // namespace

/// The RF output. It can be switched off at once from wherever the user is and amid a profile, and
/// is never switched on by the same way (in the pauses of other sequences: pauses_test.cpp). It
/// does not outlive its instrument, nothing comes on with the next one, and what could not be
/// switched off is not shown as off.
class OutputTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        begin();
        m_hasActed = false;
    }

    void amidAProfile_data() { testNames("way", {"key", "click", "space"}); }

    void amidAProfile()
    {
        QFETCH(QString, way);
        saveProfile();
        connectWithRf();
        actOnceSent("AM:STATe ON", [&] {
            way == "key" ? pressKey() : way == "click" ? clickButton(*m_rig) : pressSpace(*m_rig);
        });
        m_rig->click("quick_1");
        QTRY_VERIFY(m_hasActed);
        QCOMPARE(m_sentByAct.size(), 1);
        // What the profile has put into the error queue is read along with it.
        QVERIFY2(m_sentByAct.first().startsWith("OUTPut OFF!"), qPrintable(m_sentByAct.first()));
        QVERIFY(!m_rig->isChecked("Output"));
        QTRY_VERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(m_rig->isConnected());
        QVERIFY(m_demo->takeSent().filter("OUTPut").isEmpty());
    }

    /// Fields are entered without a pause, each for as long as the instrument takes.
    void betweenTheEntriesOfAProfile()
    {
        saveProfile();
        for (const char* name : {"AM", "Pulse"})
            m_rig->get<QAbstractButton>(name).setChecked(true);
        connectWithRf();
        actOnceSent("FREQ 5000000", pressKey);
        m_rig->click("quick_1");
        QTRY_VERIFY(m_hasActed);
        QCOMPARE(m_sentByAct, offAlone);
        QVERIFY(!m_demo->takeSent().filter("LFO:AMPLitude").isEmpty());
    }

    void isNotSwitchedOnInAReplay()
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
        QVERIFY(!m_rig->isChecked("Output"));
    }

    void besidesAWindow_data()
    {
        testNames("kind", {"About", "error", "key_FREQ", "butSetModePow", "menu", "Firmware",
                           "open_profile"});
    }

    void besidesAWindow()
    {
        QFETCH(QString, kind);
        connectWithRf();
        bool isOver = false;
        // A menu or a question has an event loop of its own.
        QTimer::singleShot(100, &m_rig->window(), [&] {
            QVERIFY(QGuiApplication::focusWindow() != m_rig->window().windowHandle() ||
                    QApplication::activePopupWidget());
            pressKey();
            QCOMPARE(m_demo->takeCommands(), offAlone);
            // Never the other way about.
            pressKey();
            QVERIFY(m_demo->takeSent().isEmpty());
            isOver = true;
            if (QWidget* popup = QApplication::activePopupWidget())
                popup->close();
        });
        if (kind == "About")
            m_rig->get<Form>("Form").showAbout();
        else if (kind == "error")
            ErrorBox::report("message", &m_rig->window());
        else if (kind == "menu")
            QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F10);
        else if (kind == "Firmware")
            m_rig->get("Firmware").show();
        else
            m_rig->clickAll(kind);
        QTRY_VERIFY(isOver);
    }

    void beforeWhatIsBeingTyped()
    {
        connectWithRf();
        auto& field = m_rig->get<QLineEdit>("FREQ");
        field.setFocus();
        QTest::keyClicks(&field, "7");
        m_demo->takeTranscript();
        clickButton(*m_rig);
        QCOMPARE(m_demo->takeCommands(), offAlone);
        QCOMPARE(field.text(), QString("7"));
        QVERIFY(field.hasFocus());
        QVERIFY(field.property("edited").toBool());
        QTest::keyClick(&field, Qt::Key_Return);
        QVERIFY(!m_demo->takeSent().filter("FREQ ").isEmpty());
    }

    void endsWithTheConnection()
    {
        const auto row = freshRows(this, [this](const QString& set, const QString& clicked) {
            if (clicked.isEmpty()) {
                (*m_demo)(set);
                m_rig->click("Output");
                m_rig->connectDevice();
            } else {
                m_rig->connectDevice();
                m_rig->click("Output");
                QVERIFY(isLit());
                if (!set.isEmpty())
                    (*m_demo)(set);
                m_rig->clickAll(clicked);
            }
            QVERIFY(!m_rig->isConnected());
            QVERIFY(!m_rig->isChecked("Output"));
            QVERIFY(!isLit());
            if (auto* box = m_rig->window().findChild<ErrorBox*>())
                box->close();
            // Silently: what was sent switches nothing, and the next one stays off.
            (*m_demo)("reset");
            (*m_demo)("timeouts immediate");
            connectAgain(false);
        });
        row("by hand", "", "connect");
        row("by the cable", "unplug", "ROSC");
        row("by a failure", "fault 2 status 0xBFFF0015", "ROSC");
        row("refused", "reply *IDN? -> Veltro", "");
        row("too old", "instruments [1111]\nfirmware=2.3.9", "");
    }

    /// A hand has asked for it, and no instrument has been there to be switched.
    void outlivesAnAttempt()
    {
        const auto row = freshRows(this, [this](const QString& set, const QString& unset) {
            m_rig->click("Output");
            (*m_demo)(set);
            m_rig->connectDevice();
            QVERIFY(!m_rig->isConnected());
            QVERIFY(m_rig->isChecked("Output"));
            QVERIFY(!isLit());
            (*m_demo)(unset);
            connectAgain(true);
        });
        row("nothing found", "unplug", "plug");
        row("not opened", nextCallFails, "plug");
        row("left its mass-storage mode", "reply MEM:MSC? -> ON", "reply MEM:MSC? -> OFF");
    }

    void aLostSwitchOffIsALoss_data()
    {
        testNames("button",
                  {"Output", "connect", "AM", "PM", "Pulse", "sine_select", "button_Sweep"});
    }

    void aLostSwitchOffIsALoss()
    {
        QFETCH(QString, button);
        m_rig->connectDevice();
        if (button != "connect") {
            m_rig->clickAll(button);
            QTRY_VERIFY(Activities::global().texts().isEmpty());
        }
        (*m_demo)(nextCallFails);
        m_rig->clickAll(button);
        QTRY_VERIFY(!m_rig->isConnected());
        QCOMPARE(m_rig->status(), QString("connection error: RF may still be on"));
        QCOMPARE(m_rig->device(), QString("Disconnected"));
        QVERIFY(!m_rig->isChecked("Output"));
        QVERIFY(!isLit());
    }

    void withoutAnInstrument()
    {
        const auto row = freshRows(this, [this](bool isOnBefore, bool byKey, bool isOn) {
            if (isOnBefore)
                m_rig->click("Output");
            if (byKey)
                QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_R, Qt::ControlModifier);
            else
                m_rig->click("Output");
            QCOMPARE(m_rig->isChecked("Output"), isOn);
            QVERIFY(!isLit());
            QVERIFY2(m_rig->status().startsWith("No instrument is connected"),
                     qPrintable(m_rig->status()));
            // That is not true any more, and not said again.
            connectAgain(isOn);
            QCOMPARE(m_rig->status(), QString());
        });
        row("click on", false, false, true);
        row("click off", true, false, false);
        row("key, on", true, true, false);
        // Pressed in haste, when a loss has just let the button go.
        row("key, off", false, true, false);
    }

private:
    void connectWithRf()
    {
        m_rig->connectDevice();
        m_rig->click("Output");
        QVERIFY(m_rig->isChecked("Output"));
        m_demo->takeTranscript();
    }

    /// One that differs from the present settings in buttons with pauses and in fields.
    void saveProfile()
    {
        m_rig->clickAll("AM Pulse");
        m_rig->enter("FREQ", "5M");
        m_rig->enter("POW", "-3");
        m_rig->openPanel("profiles");
        m_rig->saveProfile("replayed");
        m_rig->clickAll("AM Pulse");
        m_rig->enter("FREQ", "6M");
        m_rig->enter("POW", "-4");
    }

    /// Acts as soon as `text` has been sent, in whichever pause that is.
    void actOnceSent(const QString& text, const std::function<void()>& act)
    {
        whenSent(m_rig->window(), *m_demo, text, [=] {
            m_demo->takeSent();
            act();
            m_sentByAct = m_demo->takeCommands();
            m_hasActed = true;
        });
    }

    QStringList m_sentByAct;
    bool m_hasActed = false;

    bool isLit() { return m_rig->get("label_RF").isEnabled(); }

    void connectAgain(bool isOn)
    {
        m_demo->takeTranscript();
        m_rig->connectDevice();
        QVERIFY(m_rig->isConnected());
        QCOMPARE(m_demo->takeCommands().filter("OUTPut"),
                 QStringList(isOn ? "OUTPut ON!" : "OUTPut OFF!"));
        QCOMPARE(isLit(), isOn);
    }
};

QTEST_MAIN(OutputTest)
#include "output_test.moc"
