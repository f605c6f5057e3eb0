#include "fields/select_line.h"

#include <QFocusEvent>
#include <QKeyEvent>
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
        // Coming back from a menu or another window, the user continues where the cursor was.
        const bool isReturn =
            reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
        if (!m_isFocusingClick && !isReturn)
            m_edit->selectAll();
        m_isReplacing = !isReturn || !m_hasHadFocus;
        m_hasHadFocus = true;
    } else if (event->type() == QEvent::KeyPress) {
        typed(*static_cast<QKeyEvent*>(event));
    } else if (event->type() == QEvent::MouseButtonPress) {
        m_isReplacing = false;
    } else if (event->type() == QEvent::MouseButtonRelease && m_isFocusingClick) {
        // The press has placed the cursor; only its release ends the click.
        m_isFocusingClick = false;
        const bool isLeft = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        if (isLeft && !m_edit->hasSelectedText())
            m_edit->selectAll();
    }
    return QObject::eventFilter(watched, event);
}

/// A committed number is shown unselected; the next number typed still replaces it, unless the
/// cursor has been moved into it.
void selectLine::typed(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        m_isReplacing = true;
        return;
    }
    const bool isCharacter = !key.text().isEmpty() && key.text().at(0).isPrint() &&
                             !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (m_isReplacing && isCharacter)
        m_edit->selectAll();
    const bool isModifier = key.key() == Qt::Key_Shift || key.key() == Qt::Key_Control ||
                            key.key() == Qt::Key_Alt || key.key() == Qt::Key_Meta;
    m_isReplacing = m_isReplacing && isModifier;
}
