#include "tests/soak/soak_hands.h"

#include "tests/support/demo.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QSaveFile>
#include <QtTest>

namespace
{

constexpr int saidAtMost = 40;

/// They end the program, leave it, or rewrite the instrument.
const QStringList untouched = {"closeWindow", "minimize",       "butUpdate",
                               "menuButton",  "applyCalibrate", "qt_"};
const QStringList texts = {"1",         "-7",    "13",  "2.5G", "20", "0",
                           "1 000 000", "33.3k", "--5", "1e9",  "",   "999999999999"};
const QList<Qt::Key> keys = {Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Up,     Qt::Key_Down,
                             Qt::Key_Left, Qt::Key_Space,   Qt::Key_Return, Qt::Key_Escape,
                             Qt::Key_5,    Qt::Key_Delete,  Qt::Key_Minus,  Qt::Key_PageUp};
const QStringList faults = {"fault 1 status 0xBFFF0015",
                            "fault 3 status 0xBFFF0015",
                            "fault 2 status 0xBFFF00A6",
                            "fault 4 reply rubbish\\n",
                            "error -222",
                            "condition 328 on",
                            "condition 328 off",
                            "trigger rising",
                            "trigger falling",
                            "latency 3000",
                            "latency 0"};

template <typename Widget>
QList<Widget*> usable(QWidget& window)
{
    QList<Widget*> found;
    for (auto* widget : window.findChildren<Widget*>()) {
        const bool isLeftAlone =
            std::any_of(untouched.begin(), untouched.end(),
                        [&](const QString& name) { return widget->objectName().startsWith(name); });
        if (widget->isVisible() && widget->isEnabled() && !isLeftAlone)
            found << widget;
    }
    return found;
}

QWidget* inTheWay()
{
    QWidget* popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

} // namespace

SoakHands::SoakHands(unsigned seed, QWidget& window, Demo& demo, const QString& instrumentFile)
    : m_random(seed), m_window(window), m_demo(demo), m_instrumentFile(instrumentFile)
{
    m_sincePlugged.start();
}

void SoakHands::act()
{
    QWidget* window = inTheWay();
    const int what = below(100);
    if (window && what < 40) {
        say("Escape in " + window->objectName());
        QTest::keyClick(window, Qt::Key_Escape);
        return;
    }
    if (!window)
        window = &m_window;
    if (what < 3)
        disturb();
    else if (what < 60)
        click(*window);
    else if (what < 80)
        type(*window);
    else
        press(*window);
}

void SoakHands::rest()
{
    if (!m_isPlugged)
        plug(true);
    m_demo(QStringLiteral("latency 0"));
    if (QWidget* window = inTheWay())
        QTest::keyClick(window, Qt::Key_Escape);
    else if (QWidget* focused = QApplication::focusWidget())
        focused->clearFocus();
}

void SoakHands::say(const QString& what)
{
    m_said << what;
    if (m_said.size() > saidAtMost)
        m_said.removeFirst();
}

void SoakHands::click(QWidget& window)
{
    const auto buttons = usable<QAbstractButton>(window);
    if (buttons.isEmpty())
        return;
    QAbstractButton* button = any(buttons);
    say("click " + button->objectName() + ' ' + button->text());
    QTest::mouseClick(button, Qt::LeftButton);
}

void SoakHands::type(QWidget& window)
{
    const auto fields = usable<QLineEdit>(window);
    if (fields.isEmpty())
        return;
    QPointer<QLineEdit> field = any(fields);
    const QString text = any(texts);
    say("type \"" + text + "\" into " + field->objectName());
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    if (field && below(4) > 0)
        QTest::keyClick(field, Qt::Key_Return);
}

void SoakHands::press(QWidget& window)
{
    QWidget* focused = QApplication::focusWidget();
    const Qt::Key key = any(keys);
    QWidget* target = focused && window.isAncestorOf(focused) ? focused : &window;
    say(QStringLiteral("key %1 in %2")
            .arg(QVariant::fromValue(key).toInt(), 0, 16)
            .arg(target->objectName()));
    QTest::keyClick(target, key);
}

void SoakHands::disturb()
{
    if (!m_isPlugged || below(3) == 0) {
        plug(!m_isPlugged);
        return;
    }
    // What is plugged in is known a moment later.
    if (!m_sincePlugged.hasExpired(500))
        return;
    const QString fault = any(faults);
    say(fault);
    m_demo(fault);
}

void SoakHands::plug(bool isIn)
{
    say(isIn ? "plug in" : "pull the cable");
    m_isPlugged = isIn;
    m_sincePlugged.start();
    QSaveFile file(m_instrumentFile);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(isIn ? "[20215678]\nmodel=KLV-20G\n" : "# none\n") < 0 || !file.commit())
        qFatal("%s", qUtf8Printable(file.errorString()));
}
