#include "app/side_panels.h"
#include "fields/keypad/keypad.h"
#include "link/instrument_limits.h"
#include "service/about_box.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"

#include <QLineEdit>
#include <QMenu>

/// The window's keys: Escape, the menu's, and the one that ends the program.
class KeysTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init()
    {
        PanelTest::init();
        begin();
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
    }

    void escapeClosesWhatOpenedLast_data()
    {
        testColumns<QString, QStringList>("order", "left"); // after each Escape
        testRow("panel, prompt", "panel prompt", QStringList({"panel", ""}));
        testRow("prompt, panel", "prompt panel", QStringList({"prompt", ""}));
        testRow("prompt, panel, keypad", "prompt panel keypad",
                QStringList({"panel prompt", "prompt", ""}));
    }

    void escapeClosesWhatOpenedLast()
    {
        QFETCH(QString, order);
        QFETCH(QStringList, left);
        for (const QString& name : order.split(' ')) {
            // A click into the window makes it the active one, as its user's would.
            if (name != "prompt") {
                m_rig->window().activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
            }
            if (name == "panel")
                m_rig->openPanel("open_mod");
            else
                m_rig->click(name == "prompt" ? "butSetModePow" : "key_FREQ");
        }
        for (const QString& open : left) {
            press(Qt::Key_Escape);
            QCOMPARE(opened(), open);
        }
        // With nothing open it does nothing.
        press(Qt::Key_Escape);
        QVERIFY(m_rig->window().isVisible());
    }

    void escapeFirstRestoresTheField()
    {
        m_rig->connectDevice();
        m_rig->enter("FREQ", "5M");
        m_rig->openPanel("open_mod");
        auto& field = m_rig->get<QLineEdit>("FREQ");
        field.setFocus();
        QTest::keyClicks(&field, "7");
        m_demo->takeSent();
        press(Qt::Key_Escape);
        QCOMPARE(field.text(), QString("5 000 000"));
        QCOMPARE(opened(), QString("panel"));
        press(Qt::Key_Escape);
        QCOMPARE(opened(), QString());
        QCOMPARE(m_demo->takeSent(), QStringList());
    }

    void menuIsReachedByKeys_data()
    {
        testColumns<QString, int>("language", "aboutKey");
        testRow("English", "en", int(Qt::Key_A));
        testRow("Russian", "ru", 0x041E);
    }

    void menuIsReachedByKeys()
    {
        QFETCH(QString, language);
        QFETCH(int, aboutKey);
        m_rig->chooseLanguage(language);
        auto& menu = m_rig->get<QMenu>("menu");
        QTimer::singleShot(0, &m_rig->window(), [&] {
            QTRY_VERIFY(menu.isVisible());
            QKeyEvent press(QEvent::KeyPress, aboutKey, Qt::NoModifier, QString(QChar(aboutKey)));
            QCoreApplication::sendEvent(&menu, &press);
            menu.close();
        });
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F10);
        auto* about = m_rig->window().findChild<Form*>();
        QTRY_VERIFY(about->isVisible());
        about->close();
    }

    void quits()
    {
        press(Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!m_rig->window().isVisible());
    }

private:
    QString opened()
    {
        QStringList names;
        const std::pair<const char*, const char*> widgets[] = {
            {"panel", "Modulat"}, {"prompt", "WgtModePow"}, {"keypad", "keypad"}};
        for (const auto& [name, widget] : widgets) {
            if (m_rig->get(widget).isVisible())
                names << name;
        }
        return names.join(' ');
    }

    /// As the system would: to whichever window has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        // The platform of the tests gives the focus back to nobody.
        QWindow* window = QGuiApplication::focusWindow();
        if (!window || !window->isVisible()) {
            m_rig->window().activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
            window = m_rig->window().windowHandle();
        }
        QTest::keyClick(window, key, modifiers);
        QTRY_VERIFY(!SidePanels::moving());
    }
};

QTEST_MAIN(KeysTest)
#include "keys_test.moc"
