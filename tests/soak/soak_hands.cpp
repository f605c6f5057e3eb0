#include "tests/soak/soak_hands.h"

#include "tests/support/demo.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
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
const QStringList fileNames = {"one.csv", "two.csv", "one.xml", "two.xml", "three"};
const QStringList faults = {"status 0xBFFF0015", "status 0xBFFF00A6", "reply rubbish\\n",
                            "length 70000",      "endless",           "error -222",
                            "condition 328 on",  "condition 328 off", "trigger rising",
                            "trigger falling",   "latency 3000",      "latency 0"};
constexpr int faultsOfCalls = 5; ///< the first of them

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
    if (window && (what < 50 || qobject_cast<QFileDialog*>(window))) {
        answer(*window);
        return;
    }
    if (!window)
        window = &m_window;
    if (what < 3)
        disturb();
    else if (what < 60)
        click<QAbstractButton>(*window);
    else if (what < 80)
        type(*window, any(texts));
    else
        press(*window);
}

void SoakHands::rest()
{
    if (!m_isPlugged)
        plug(true);
    m_demo(QStringLiteral("latency 0"));
    if (QWidget* window = inTheWay())
        answer(*window);
    else if (QWidget* focused = QApplication::focusWidget())
        focused->clearFocus();
}

void SoakHands::say(const QString& what)
{
    m_said << what;
    if (m_said.size() > saidAtMost)
        m_said.removeFirst();
}

/// By its buttons or by Escape. What else there is in a file dialog leads to any folder and
/// deletes.
void SoakHands::answer(QWidget& window)
{
    const bool isOfFiles = qobject_cast<QFileDialog*>(&window);
    if (isOfFiles && below(2) == 0) {
        type(window, any(fileNames));
    } else if (below(4) == 0 || !click<QPushButton>(window)) {
        say("Escape in " + window.objectName());
        QTest::keyClick(&window, Qt::Key_Escape);
    }
}

template <typename Button>
bool SoakHands::click(QWidget& window)
{
    const auto buttons = usable<Button>(window);
    if (buttons.isEmpty())
        return false;
    QAbstractButton* button = any(buttons);
    // Most rounds are to end connected, where there is something to compare.
    if (button->objectName() == "connect" && below(4) > 0)
        return true;
    say("click " + button->objectName() + ' ' + button->text());
    QTest::mouseClick(button, Qt::LeftButton);
    return true;
}

void SoakHands::type(QWidget& window, const QString& text)
{
    const auto fields = usable<QLineEdit>(window);
    if (fields.isEmpty())
        return;
    QPointer<QLineEdit> field = any(fields);
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
    const int call = 1 + below(4);
    say(fault + QStringLiteral(" at call %1").arg(call));
    if (faults.indexOf(fault) >= faultsOfCalls) {
        m_demo(fault);
        return;
    }
    // A session that fails goes on failing: a lost command alone would not be noticed.
    for (int failing = call; failing < call + (fault.startsWith("status") ? 3 : 1); ++failing)
        m_demo(QStringLiteral("fault %1 %2").arg(failing).arg(fault));
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
