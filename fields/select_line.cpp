#include "fields/select_line.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

namespace
{
bool isReturn(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool movesCursor(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Left || key.key() == Qt::Key_Right || key.key() == Qt::Key_Home ||
           key.key() == Qt::Key_End;
}

bool isCharacter(const QKeyEvent& key)
{
    return !key.text().isEmpty() && key.text().at(0).isPrint() &&
           !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}
} // namespace

selectLine::selectLine(QLineEdit* edit) : QObject(edit), m_edit(edit)
{
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textEdited, this, [this] { set(m_cursor, true); });
    connect(edit, &QLineEdit::editingFinished, this, [this] { set(m_cursor, false); });
}

void selectLine::set(Cursor cursor, bool isTyping)
{
    const bool wasChosen = isCursorChosen();
    m_cursor = cursor;
    m_isTyping = isTyping;
    if (isCursorChosen() != wasChosen)
        emit cursorChosenChanged();
}

void selectLine::chooseCursor()
{
    set(qMax(m_cursor, Cursor::Clicked), false);
}

bool selectLine::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        focused(static_cast<QFocusEvent*>(event)->reason());
        break;
    case QEvent::KeyPress:
        typed(*static_cast<QKeyEvent*>(event));
        break;
    case QEvent::MouseButtonRelease:
        released(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
            break;
        doubleClicked(*static_cast<QMouseEvent*>(event));
        return true;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void selectLine::focused(Qt::FocusReason reason)
{
    m_isFocusingClick = reason == Qt::MouseFocusReason;
    // Coming back from a menu or another window, the user continues where the cursor was.
    const bool isBack = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
    if (!m_isFocusingClick && !isBack)
        m_edit->selectAll();
    if (!isBack || !m_hasHadFocus)
        set(Cursor::Free, false);
    m_hasHadFocus = true;
}

void selectLine::typed(const QKeyEvent& key)
{
    // A committed number is shown unselected.
    if (isReturn(key)) {
        set(Cursor::Free, false);
    } else if (movesCursor(key)) {
        set(Cursor::Placed, m_isTyping);
    } else if (isCharacter(key) && m_hasHadFocus && m_cursor != Cursor::Placed && !m_isTyping) {
        m_edit->selectAll();
        set(Cursor::Free, false);
    }
}

/// The press has placed the cursor; only its release ends the click.
void selectLine::released(const QMouseEvent& event)
{
    const bool isFocusing = m_isFocusingClick;
    m_isFocusingClick = false;
    if (event.button() != Qt::LeftButton)
        return;
    if (m_edit->hasSelectedText()) {
        const bool isPart = m_edit->selectedText() != m_edit->text();
        set(isPart ? Cursor::Placed : m_cursor, m_isTyping);
    } else if (isFocusing) {
        m_edit->selectAll();
    } else {
        set(qMax(m_cursor, Cursor::Clicked), m_isTyping);
    }
}

/// Puts the cursor there; a group of digits is no word to be selected.
void selectLine::doubleClicked(const QMouseEvent& event)
{
    m_edit->setCursorPosition(m_edit->cursorPositionAt(event.pos()));
    set(Cursor::Placed, m_isTyping);
}
