#include "panel/select_line.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QMouseEvent>

selectLine::selectLine(QLineEdit* edit) : QObject(edit), m_edit(edit)
{
    edit->installEventFilter(this);
}

bool selectLine::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        m_isFocusingClick = reason == Qt::MouseFocusReason;
        // Coming back from a menu or another window goes on where the user left.
        const bool isReturn =
            reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
        if (!m_isFocusingClick && !isReturn)
            m_edit->selectAll();
    } else if (event->type() == QEvent::MouseButtonRelease && m_isFocusingClick) {
        // The press has placed the cursor; only its release ends the click.
        m_isFocusingClick = false;
        const bool isLeft = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        if (isLeft && !m_edit->hasSelectedText())
            m_edit->selectAll();
    }
    return QObject::eventFilter(watched, event);
}
