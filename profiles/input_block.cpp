#include "profiles/input_block.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

InputBlock::InputBlock(const QVector<QWidget*>& exempt) : m_exempt(exempt)
{
    qApp->installEventFilter(this);
}

bool InputBlock::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return !isExempt(watched, static_cast<QMouseEvent*>(event)->globalPos());
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
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
        return !m_exempt.contains(qobject_cast<QWidget*>(watched)) &&
               !m_exempt.contains(qobject_cast<QWidget*>(watched->parent()));
    default:
        return false;
    }
}

/// What the mouse does reaches the system's window first, and would move the focus on its way to
/// the widget.
bool InputBlock::isExempt(QObject* watched, const QPoint& globalPos) const
{
    auto* widget = watched->isWidgetType() ? static_cast<QWidget*>(watched)
                                           : QApplication::widgetAt(globalPos);
    return m_exempt.contains(widget);
}
