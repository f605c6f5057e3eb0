#include "ui/zoom.h"

#include "ui/screen_pixels.h"

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
#include <cmath>
#include <iterator>
#include <utility>
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
/// What the desktop has to be scaled by at least to count as scaled.
constexpr double leastScale = 1.1;
/// Qt knows in whole parts of this size by what it draws, and exactly by what it clears. Where the
/// two differ, an edge may fall to either side of a pixel, which leaves a black slit.
constexpr double scalePart = 1.0 / 65536.0;
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

void setFactor(double factor)
{
    // It expects no window at all; here none is on the screen.
    QLoggingCategory& log = *QLoggingCategory::defaultCategory();
    const bool isWarning = log.isWarningEnabled();
    log.setEnabled(QtWarningMsg, false);
    QHighDpiScaling::setGlobalFactor(factor);
    log.setEnabled(QtWarningMsg, isWarning);
}

/// Of all screens the least scale and the greatest.
std::pair<double, double> scalesOfScreens()
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    std::vector<double> scales;
    std::transform(screens.begin(), screens.end(), std::back_inserter(scales),
                   [](const QScreen* screen) { return screen->devicePixelRatio(); });
    const auto [least, greatest] = std::minmax_element(scales.begin(), scales.end());
    return scales.empty() ? std::pair(1.0, 1.0) : std::pair(*least, *greatest);
}

/// A desktop that is but a little larger than plain is taken as plain: every line would fall
/// between pixels, for a size that nobody can tell from the plain one. Whoever sets the variable
/// means it.
double plainScale(double least, double greatest)
{
    const double chosen = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
    if (chosen > 0.0)
        return chosen * least;
    return greatest < leastScale ? 1.0 : least;
}

/// That gives a screen of its own scale this one, or as near to it as Qt can draw.
double factorFor(double scale, double ofScreen)
{
    const double drawn = std::round(scale / scalePart) * scalePart;
    double factor = drawn / ofScreen;
    // Rounded down, it would be drawn by a part less.
    while (factor * ofScreen < drawn)
        factor = std::nextafter(factor, 2.0 * factor);
    return factor;
}

/// A window that is taken from the screen loses the focus, which the desktop gives back later, and
/// a field that loses it commits. So it is told only if the focus does not come back.
class KeepsFocus : public QObject
{
public:
    /// Lives until that window has the focus again; belongs to it.
    explicit KeepsFocus(QWidget* window) : QObject(window)
    {
        qApp->installEventFilter(this);
        connect(qApp, &QGuiApplication::focusWindowChanged, this, [this, window](QWindow* now) {
            if (now && now == window->windowHandle())
                end();
        });
        QTimer::singleShot(longestMs, this, &KeepsFocus::end);
    }

protected:
    /// Only the desktop's doing: what the user moves to in the window counts at once.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::FocusOut || !watched->isWidgetType() ||
            static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason)
            return false;
        m_left = static_cast<QWidget*>(watched);
        return true;
    }

private:
    void end()
    {
        qApp->removeEventFilter(this);
        disconnect(qApp, nullptr, this, nullptr);
        deleteLater();
        QFocusEvent leave(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        // What it commits may delete this with the window.
        if (m_left && m_left != QApplication::focusWidget())
            QCoreApplication::sendEvent(m_left, &leave);
    }

    static constexpr int longestMs = 500;
    QPointer<QWidget> m_left;
};

/// Takes the windows from the screen while the scale changes, and puts them back at their places.
class OffScreen
{
public:
    OffScreen() : m_active(QApplication::activeWindow())
    {
        if (m_active)
            new KeepsFocus(m_active);
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets) {
            // Of the same size in its own pixels, it would keep that of the screen's.
            if (QBackingStore* drawn = widget->backingStore())
                drawn->resize(QSize(1, 1));
            if (!widget->isVisible())
                continue;
            m_shown.push_back({widget, toScreenPixels(*widget, widget->geometry().topLeft())});
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

    ~OffScreen()
    {
        for (const Shown& shown : m_shown) {
            if (shown.widget)
                putBack(*shown.widget, shown.place);
        }
        if (m_active)
            m_active->activateWindow();
    }

    Q_DISABLE_COPY_MOVE(OffScreen)

private:
    struct Shown {
        QPointer<QWidget> widget;
        QPointF place; ///< in pixels of the screen
    };

    void putBack(QWidget& widget, const QPointF& place) const
    {
        const bool isFree = !widget.isMaximized() && !widget.isFullScreen();
        // Before it is shown, so that its owner may move it then.
        if (isFree)
            widget.setGeometry(QRect(fromScreenPixels(widget, place), widget.size()));
        const bool isQuiet = widget.testAttribute(Qt::WA_ShowWithoutActivating);
        widget.setAttribute(Qt::WA_ShowWithoutActivating, isQuiet || &widget != m_active);
        widget.show();
        widget.setAttribute(Qt::WA_ShowWithoutActivating, isQuiet);
        if (!isFree)
            return;
        const QRect room = widget.screen()->availableGeometry();
        const QPoint last = room.bottomRight() - widget.rect().bottomRight();
        const QPoint there(std::max(room.left(), std::min(widget.x(), last.x())),
                           std::max(room.top(), std::min(widget.y(), last.y())));
        // A desktop that frames windows tells places from in between; its last word is on a move.
        widget.move(there + QPoint(1, 0));
        widget.move(there);
    }

    std::vector<Shown> m_shown;
    QPointer<QWidget> m_active;
};
} // namespace

Zoom::Zoom(QSettings* settings)
    : m_settings(settings), m_least(plainPercent), m_percent(plainPercent)
{
    setFactor(1.0);
    const auto [least, greatest] = scalesOfScreens();
    m_ofScreen = least;
    m_plain = plainScale(least, greatest);
    // Below one pixel for a pixel Qt cuts off what it draws.
    m_least = *std::find_if(std::begin(percents), std::end(percents), [this](int percent) {
        return percent >= plainPercent || percent * m_plain >= plainPercent;
    });
    if (settings)
        m_percent = offered(kept(*settings), m_least);
    scale();
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
    scale();
}

void Zoom::scale()
{
    setFactor(factorFor(m_plain * m_percent / plainPercent, m_ofScreen));
}
