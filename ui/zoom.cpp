#include "ui/zoom.h"

#include <QApplication>
#include <QBackingStore>
#include <QFocusEvent>
#include <QLoggingCategory>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QTimer>
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

int kept(const QSettings& settings)
{
    bool isNumber = false;
    const int percent = settings.value(zoomKey).toInt(&isNumber);
    return isNumber ? percent : plainPercent;
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

/// Has no field commit because another window becomes active for a moment, which the desktop tells
/// later.
class KeepsFocus : public QObject
{
public:
    KeepsFocus() : QObject(qApp)
    {
        qApp->installEventFilter(this);
        QTimer::singleShot(lateMs, this, &QObject::deleteLater);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return event->type() == QEvent::FocusOut && watched->isWidgetType() &&
               static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason;
    }

private:
    static constexpr int lateMs = 500;
};

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
            const QPoint corner = widget->screen()->geometry().topLeft();
            m_shown.push_back(
                {widget, corner, QPointF(widget->pos() - corner) * widget->devicePixelRatioF()});
            widget->hide();
        }
        // An owner before what belongs to it.
        std::stable_partition(m_shown.begin(), m_shown.end(),
                              [](const Shown& shown) { return !shown.widget->parentWidget(); });
        // What was shown once would keep the old scale.
        const auto windows = QGuiApplication::allWindows();
        for (QWindow* window : windows)
            window->destroy();
    }

    ~OffScreen() override
    {
        for (const Shown& shown : m_shown) {
            if (shown.widget)
                putBack(*shown.widget, shown.corner, shown.place);
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
        QPoint corner; ///< of the screen; no scale moves it
        QPointF place; ///< from there, in pixels of the screen
    };

    void putBack(QWidget& widget, const QPoint& corner, const QPointF& place) const
    {
        const bool isQuiet = widget.testAttribute(Qt::WA_ShowWithoutActivating);
        widget.setAttribute(Qt::WA_ShowWithoutActivating, isQuiet || &widget != m_active);
        widget.show();
        widget.setAttribute(Qt::WA_ShowWithoutActivating, isQuiet);
        const QPoint there = corner + (place / widget.devicePixelRatioF()).toPoint();
        const QRect room = widget.screen()->availableGeometry();
        const QPoint last = room.bottomRight() - widget.rect().bottomRight();
        widget.move(std::max(room.left(), std::min(there.x(), last.x())),
                    std::max(room.top(), std::min(there.y(), last.y())));
    }

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
        m_percent = offered(kept(*settings), m_least);
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
    new KeepsFocus;
    const OffScreen whileScaled;
    setFactor(percent);
}
