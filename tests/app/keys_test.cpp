#include "app/side_panels.h"
#include "fields/keypad/keypad.h"
#include "link/instrument_limits.h"
#include "service/about_box.h"
#include "tests/support/panel_test.h"
#include "tests/support/rows.h"
#include "ui/theme.h"

#include <QLineEdit>
#include <QMenu>

namespace
{
bool isStill()
{
    return !SidePanels::moving();
}
} // namespace

/// The window's keys: Escape, the menu's, and what a field shows of them.
class KeysTest : public PanelTest
{
    Q_OBJECT

private slots:
    void init();

    void escapeClosesWhatOpenedLast_data();
    void escapeClosesWhatOpenedLast();
    void escapeFirstRestoresTheField();
    void aChangedFieldLooksSo();
    void menuIsReachedByKeys_data();
    void menuIsReachedByKeys();
    void quits();

private:
    void open(const QString& name);
    QString opened();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
};

void KeysTest::init()
{
    PanelTest::init();
    StartOptions options = PanelRig::defaultOptions();
    options.isClean = true;
    m_rig = std::make_unique<PanelRig>(options);
    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
}

void KeysTest::open(const QString& name)
{
    if (name == "panel")
        m_rig->click("open_mod");
    else if (name == "prompt")
        m_rig->click("butSetModePow");
    else
        m_rig->click("key_FREQ");
    QTRY_VERIFY(isStill());
}

QString KeysTest::opened()
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
void KeysTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    // The platform of the tests gives the focus back to nobody.
    QWindow* window = QGuiApplication::focusWindow();
    if (!window || !window->isVisible()) {
        m_rig->window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
        window = m_rig->window().windowHandle();
    }
    QTest::keyClick(window, key, modifiers);
    QTRY_VERIFY(isStill());
}

void KeysTest::escapeClosesWhatOpenedLast_data()
{
    testColumns<QString, QStringList>("order", "left"); // after each Escape
    QTest::newRow("panel") << "panel" << QStringList({""});
    testRow("panel, prompt", "panel prompt", QStringList({"panel", ""}));
    testRow("prompt, panel", "prompt panel", QStringList({"prompt", ""}));
    testRow("panel, keypad", "panel keypad", QStringList({"panel", ""}));
    testRow("prompt, panel, keypad", "prompt panel keypad",
            QStringList({"panel prompt", "prompt", ""}));
}

void KeysTest::escapeClosesWhatOpenedLast()
{
    QFETCH(QString, order);
    QFETCH(QStringList, left);
    for (const QString& name : order.split(' ')) {
        // A click into the window makes it the active one, as its user's would.
        if (name != "prompt") {
            m_rig->window().activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
        }
        open(name);
    }
    for (const QString& open : left) {
        press(Qt::Key_Escape);
        QCOMPARE(opened(), open);
    }
    // With nothing open it does nothing.
    press(Qt::Key_Escape);
    QVERIFY(m_rig->window().isVisible());
}

void KeysTest::escapeFirstRestoresTheField()
{
    m_rig->connectDevice();
    m_rig->enter("FREQ", "5M");
    open("panel");
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

void KeysTest::aChangedFieldLooksSo()
{
    auto& field = m_rig->get<QLineEdit>("line_Ampl_1");
    m_rig->openPanelOf("AM");
    m_rig->click("fold_AM_");
    QTRY_VERIFY(field.isVisible());
    field.setFocus();
    const QColor accent = themeColour(ThemeName::Light, "accent");
    const auto barPixels = [&] {
        const QImage image = field.grab().toImage();
        int pixels = 0;
        while (pixels < image.width() / 2 && image.pixelColor(pixels, image.height() / 2) == accent)
            ++pixels;
        return pixels;
    };
    QCOMPARE(barPixels(), 2);
    QTest::keyClicks(&field, "7");
    QCOMPARE(barPixels(), 4);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(barPixels(), 2);
}

void KeysTest::menuIsReachedByKeys_data()
{
    testColumns<QString, int>("language", "aboutKey");
    testRow("English", "en", int(Qt::Key_A));
    testRow("Russian", "ru", 0x041E);
}

void KeysTest::menuIsReachedByKeys()
{
    QFETCH(QString, language);
    QFETCH(int, aboutKey);
    StartOptions options = PanelRig::defaultOptions();
    options.language = language;
    m_rig = std::make_unique<PanelRig>(options);
    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
    auto* menu = m_rig->window().findChild<QMenu*>("menu");
    QTimer::singleShot(0, &m_rig->window(), [&] {
        QTRY_VERIFY(menu->isVisible());
        QKeyEvent press(QEvent::KeyPress, aboutKey, Qt::NoModifier, QString(QChar(aboutKey)));
        QCoreApplication::sendEvent(menu, &press);
        menu->close();
    });
    QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_F10);
    auto* about = m_rig->window().findChild<Form*>();
    QTRY_VERIFY(about->isVisible());
    about->close();
    QCOMPARE(m_rig->get<QAction>("actionHelp").shortcut(), QKeySequence(Qt::Key_F1));
    QCOMPARE(menu->actions().last()->text().section('\t', 1), QString("Ctrl+Q"));
}

void KeysTest::quits()
{
    press(Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!m_rig->window().isVisible());
}

QTEST_MAIN(KeysTest)
#include "keys_test.moc"
