#include "app/escape_order.h"

#include <QEvent>
#include <QWidget>

void EscapeOrder::add(QWidget* widget, const std::function<void()>& close)
{
    m_entries.append({widget, close});
    widget->installEventFilter(this);
}

bool EscapeOrder::closeLast()
{
    if (m_open.isEmpty())
        return false;
    for (const Entry& entry : qAsConst(m_entries)) {
        if (entry.widget == m_open.last()) {
            entry.close();
            break;
        }
    }
    return true;
}

bool EscapeOrder::eventFilter(QObject* watched, QEvent* event)
{
    // A widget hidden by the system, when the window is minimised, has not been closed.
    if (!event->spontaneous() && event->type() == QEvent::Show) {
        m_open.removeAll(watched);
        m_open.append(watched);
    } else if (!event->spontaneous() && event->type() == QEvent::Hide) {
        m_open.removeAll(watched);
    }
    return QObject::eventFilter(watched, event);
}
