#include "fields/keypad/trailing_input.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

void TrailingInput::swallow()
{
    static QPointer<TrailingInput> current;
    delete current;
    current = new TrailingInput;
}

TrailingInput::TrailingInput() : QObject(QCoreApplication::instance())
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool TrailingInput::eventFilter(QObject* watched, QEvent* event)
{
    // The window system's own events reach the window first, then one widget.
    if (m_isOver || !watched->isWidgetType())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonPress:
        m_isOver = true;
        break;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->isAutoRepeat())
            return true;
        m_isOver = true;
        break;
    default:
        return false;
    }
    deleteLater();
    return event->type() == QEvent::MouseButtonDblClick;
}
