#include "app/window_place.h"

#include "ui/screen_pixels.h"

#include <QGuiApplication>
#include <QLayout>
#include <QMainWindow>
#include <QResizeEvent>
#include <QScreen>
#include <QSettings>
#include <QSizeGrip>

#include <algorithm>

namespace
{
const QString placeKey = QStringLiteral("Window/place");
const char* const sizeKeys[] = {"Window/size", "Window/size_with_panel"};
/// What of the title has to be on a screen, from the corner of the window.
constexpr QPoint grip(64, 24);
/// Within the round corner, and together no more than the margin beside the status line.
constexpr int gripInset = 3;
constexpr int gripSize = 13;
} // namespace

WindowPlace::WindowPlace(QMainWindow* window)
    : QObject(window), m_window(*window), m_grip(new QSizeGrip(window->centralWidget()))
{
    m_grip->setObjectName(QStringLiteral("size_grip"));
    m_grip->resize(gripSize, gripSize);
    window->layout()->setSizeConstraint(QLayout::SetMinimumSize);
    window->installEventFilter(this);
}

void WindowPlace::keepIn(QSettings& settings)
{
    m_settings = &settings;
    for (std::size_t i = 0; i < m_sizes.size(); ++i)
        m_sizes[i] = settings.value(QLatin1String(sizeKeys[i])).toSize();
    const QVariant place = settings.value(placeKey);
    // The screen may be gone.
    if (place.type() == QVariant::Point && QGuiApplication::screenAt(place.toPoint() + grip))
        m_window.move(place.toPoint());
}

void WindowPlace::save()
{
    for (std::size_t i = 0; i < m_sizes.size(); ++i) {
        if (m_sizes[i].isValid())
            m_settings->setValue(QLatin1String(sizeKeys[i]), m_sizes[i]);
    }
    if (isFree())
        m_settings->setValue(placeKey, home());
}

/// Neither the desktop nor the user has given the window all of the screen.
bool WindowPlace::isFree() const
{
    return !m_window.isMaximized() && !m_window.isFullScreen();
}

void WindowPlace::fit()
{
    if (!isFree())
        return;
    const QSize screen = m_window.screen()->availableSize();
    const QSize wanted = m_sizes[m_isPanelOpen ? 1 : 0].boundedTo(screen);
    const QSize size = m_window.minimumSizeHint().expandedTo(wanted);
    if (size == m_window.size())
        return;
    m_asked << size;
    m_window.resize(size);
    if (!m_isHeld)
        stayOnScreen();
}

void WindowPlace::hold()
{
    m_isHeld = true;
    m_asked.clear();
}

/// The user has given the window this size, or the desktop in the user's name.
void WindowPlace::take(const QSize& size)
{
    if (m_isHeld || !isFree() || m_asked.contains(size))
        return;
    m_asked.clear();
    m_sizes[m_isPanelOpen ? 1 : 0] = size;
}

void WindowPlace::settle(bool isPanelOpen)
{
    m_isHeld = false;
    m_isPanelOpen = isPanelOpen;
    fit();
    stayOnScreen();
}

/// What has grown below the display may be more than there is room for.
void WindowPlace::stayOnScreen()
{
    const QPoint place = placeOf(m_window.frameSize());
    if (m_window.isVisible() && place != m_window.pos())
        m_window.move(place);
}

QPoint WindowPlace::home()
{
    const QPointF here = toScreenPixels(m_window, m_window.pos());
    // A zoom puts it back there but for the rounding.
    const double rounding = 2.0 * m_window.devicePixelRatioF();
    if ((here - m_shiftedTo).manhattanLength() > rounding)
        m_home = here;
    return fromScreenPixels(m_window, m_home);
}

QPoint WindowPlace::placeFor(const QSize& growth)
{
    const QSize screen = m_window.screen()->availableSize();
    return placeOf((m_window.frameSize() + growth.expandedTo(QSize(0, 0)))
                       .expandedTo(m_sizes.back().boundedTo(screen)));
}

QPoint WindowPlace::placeOf(const QSize& size)
{
    const QPoint wanted = home();
    const QRect screen = m_window.screen()->availableGeometry();
    const QPoint overhang = QRect(wanted, size).bottomRight() - screen.bottomRight();
    const QPoint room = wanted - screen.topLeft();
    const QPoint place = wanted - QPoint(std::clamp(overhang.x(), 0, std::max(room.x(), 0)),
                                         std::clamp(overhang.y(), 0, std::max(room.y(), 0)));
    m_shiftedTo = toScreenPixels(m_window, place);
    return place;
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Resize:
        m_grip->move(m_window.rect().bottomRight() - m_grip->rect().bottomRight() -
                     QPoint(gripInset, gripInset));
        // Where the desktop moves no corners, the grip does.
        if (event->spontaneous() || QWidget::mouseGrabber() == m_grip)
            take(static_cast<QResizeEvent*>(event)->size());
        break;
    case QEvent::Show:
        if (!m_isHeld)
            fit();
        // As at the start, a place is as the user has left it; back after a zoom, all else is new.
        if (m_wasShown && !m_isHeld && isFree() && !event->spontaneous())
            stayOnScreen();
        m_wasShown = true;
        break;
    case QEvent::LayoutRequest:
        if (!m_isHeld)
            fit();
        break;
    case QEvent::Close:
        if (m_settings)
            save();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
