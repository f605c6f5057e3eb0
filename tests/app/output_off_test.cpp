#include "link/instrument_limits.h"
#include "tests/support/panel_test.h"

#include "fields/keypad/keypad.h"
#include "service/about_box.h"
#include "tests/support/rows.h"
#include "tests/support/wire_rig.h"
#include "ui/error_box.h"

#include <QLineEdit>

#include <functional>

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
} // namespace

/// The RF output can be switched off at once from wherever the user is and amid a profile, and is
/// never switched on by the same way. In the pauses of the other sequences: pauses_test.cpp.
class OutputOffTest : public PanelTest
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
            if (way == "key")
                pressKey();
            else if (way == "click")
                clickButton(*m_rig);
            else
                pressSpace(*m_rig);
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
        testNames("kind", {"About", "error", "keypad", "prompt", "menu", "firmware", "file"});
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
        else if (kind == "keypad")
            m_rig->click("key_FREQ");
        else if (kind == "prompt")
            m_rig->click("butSetModePow");
        else if (kind == "menu")
            QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F10);
        else if (kind == "firmware")
            m_rig->get<QDialog>("Firmware").show();
        else
            m_rig->clickAll("open_profile");
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
};

QTEST_MAIN(OutputOffTest)
#include "output_off_test.moc"
