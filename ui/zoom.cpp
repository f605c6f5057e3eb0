#include "ui/zoom.h"

#include <QApplication>
#include <QBackingStore>
#include <QLoggingCategory>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <iterator>
#include <limits>
#include <vector>

/// Qt's own, of which no header is public: by what every length is multiplied, as the environment
/// variable QT_SCALE_FACTOR does at the start.
class Q_GUI_EXPORT QHighDpiScaling
{
public:
    static void setGlobalFactor(qreal factor);
};

namespace
{
constexpr int percents[] = {80, 90, 100, 110, 125, 150, 175, 200};
constexpr int plainPercent = 100;
const QString zoomKey = QStringLiteral("zoom");

/// The nearest of those that can be chosen.
int offered(int percent, int least)
{
    const auto* const nearest =
        std::min_element(std::begin(percents), std::end(percents), [percent](int a, int b) {
            return std::abs(a - percent) < std::abs(b - percent);
        });
    return std::max(*nearest, least);
}

void setFactor(int percent)
{
    const double ofDesktop = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
    // It expects no window at all; here none is on the screen.
    QLoggingCategory& log = *QLoggingCategory::defaultCategory();
    const bool isWarning = log.isWarningEnabled();
    log.setEnabled(QtWarningMsg, false);
    QHighDpiScaling::setGlobalFactor((ofDesktop > 0.0 ? ofDesktop : 1.0) * percent / plainPercent);
    log.setEnabled(QtWarningMsg, isWarning);
}

/// Below one pixel for a pixel Qt cuts off what it draws. While nothing is zoomed.
int leastPercent()
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    double ofDesktop = std::numeric_limits<double>::infinity();
    for (const QScreen* screen : screens)
        ofDesktop = std::min(ofDesktop, screen->devicePixelRatio());
    return *std::find_if(std::begin(percents), std::end(percents), [ofDesktop](int percent) {
        return percent >= plainPercent || percent * ofDesktop >= plainPercent;
    });
}

/// Takes the windows from the screen while the scale changes, and puts them back at their places. A
/// field that is half typed stays so.
class OffScreen : public QObject
{
public:
    OffScreen() : m_active(QApplication::activeWindow())
    {
        qApp->installEventFilter(this);
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets) {
            // Of the same size in its own pixels, it would keep that of the screen's.
            if (QBackingStore* drawn = widget->backingStore())
                drawn->resize(QSize(1, 1));
            if (!widget->isVisible())
                continue;
            m_shown.push_back({widget, QPointF(widget->pos()) * widget->devicePixelRatioF()});
            widget->hide();
        }
        // What was shown once would keep the old scale.
        const auto windows = QGuiApplication::allWindows();
        for (QWindow* window : windows)
            window->destroy();
    }

    ~OffScreen() override
    {
        for (const Shown& shown : m_shown) {
            if (!shown.widget)
                continue;
            shown.widget->show();
            shown.widget->move((shown.place / shown.widget->devicePixelRatioF()).toPoint());
        }
        if (m_active)
            m_active->activateWindow();
    }

    Q_DISABLE_COPY_MOVE(OffScreen)

protected:
    /// A field that lost the focus would commit.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return event->type() == QEvent::FocusOut && watched->isWidgetType();
    }

private:
    struct Shown {
        QPointer<QWidget> widget;
        QPointF place; ///< in pixels of the screen
    };
    std::vector<Shown> m_shown;
    QPointer<QWidget> m_active;
};
} // namespace

Zoom::Zoom(QSettings* settings)
    : m_settings(settings), m_least(plainPercent), m_percent(plainPercent)
{
    setFactor(plainPercent);
    m_least = leastPercent();
    if (settings)
        m_percent = offered(settings->value(zoomKey, plainPercent).toInt(), m_least);
    setFactor(m_percent);
}

bool Zoom::canStep(int direction) const
{
    return direction > 0 ? m_percent < *std::rbegin(percents) : m_percent > m_least;
}

void Zoom::step(int direction)
{
    const auto* const present = std::find(std::begin(percents), std::end(percents), m_percent);
    if (canStep(direction))
        choose(*(present + direction));
}

void Zoom::reset()
{
    choose(plainPercent);
}

void Zoom::choose(int percent)
{
    if (percent == m_percent)
        return;
    m_percent = percent;
    if (m_settings)
        m_settings->setValue(zoomKey, percent);
    const OffScreen whileScaled;
    setFactor(percent);
}
