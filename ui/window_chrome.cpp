#include "ui/window_chrome.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

WindowChrome::WindowChrome(QWidget* window) : QObject(window), m_window(window)
{
    window->setWindowFlag(Qt::FramelessWindowHint);
    window->setAttribute(Qt::WA_TranslucentBackground);
    window->installEventFilter(this);
}

bool WindowChrome::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const auto& press = *static_cast<QMouseEvent*>(event);
        m_grabbed = press.button() == Qt::LeftButton;
        m_grabbedAt = press.globalPos() - m_window->pos();
    } else if (event->type() == QEvent::MouseMove && m_grabbed) {
        drag(*static_cast<QMouseEvent*>(event));
    } else if (event->type() == QEvent::MouseButtonRelease) {
        m_grabbed = false;
        m_movedByHand = false;
    }
    return QObject::eventFilter(watched, event);
}

void WindowChrome::drag(const QMouseEvent& event)
{
    const QPoint target = event.globalPos() - m_grabbedAt;
    if (!m_movedByHand) {
        if ((target - m_window->pos()).manhattanLength() < QApplication::startDragDistance())
            return;
        // The system's own move knows snapping and Wayland; where there is none, we follow by hand.
        if (m_window->windowHandle() && m_window->windowHandle()->startSystemMove()) {
            m_grabbed = false;
            return;
        }
        m_movedByHand = true;
    }
    m_window->move(target);
}
