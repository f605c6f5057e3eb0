#include "profiles/input_block.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

InputBlock::InputBlock(const IsExempt& isExempt) : m_isExempt(isExempt)
{
    qApp->installEventFilter(this);
}

bool InputBlock::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_isPressed = isForExempt(watched, static_cast<QMouseEvent*>(event)->globalPos());
        return !m_isPressed;
    case QEvent::MouseButtonRelease:
        return !m_isPressed;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return !m_isExempt(QApplication::focusWidget());
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    case QEvent::Shortcut:
        // A key belongs to its button, or to a shortcut that belongs to the button.
        return !m_isExempt(qobject_cast<QWidget*>(watched)) &&
               !m_isExempt(qobject_cast<QWidget*>(watched->parent()));
    default:
        return false;
    }
}

/// Mouse events reach the system's window first, and would move the focus on their way to the
/// widget.
bool InputBlock::isForExempt(QObject* watched, const QPoint& globalPos) const
{
    return m_isExempt(watched->isWidgetType() ? static_cast<QWidget*>(watched)
                                              : QApplication::widgetAt(globalPos));
}
