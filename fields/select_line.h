#pragma once

#include <QObject>

class QKeyEvent;
class QLineEdit;
class QMouseEvent;

/// Selects the whole text of a line edit when it takes the focus. What is typed then replaces the
/// text, wherever a click or a step has left the cursor, unless the user has put the cursor into
/// the text by an arrow key or a double click, or has selected a part of it. After Return, too, the
/// next number typed replaces the text. Installs itself on the line edit, which owns it.
class selectLine : public QObject
{
    Q_OBJECT

public:
    explicit selectLine(QLineEdit* edit);

    /// Whether the user has chosen a place in the text, by the mouse or by keys, and does not type.
    bool isCursorChosen() const { return m_cursor != Cursor::Free && !m_isTyping; }
    /// The user has stepped the digit at the cursor.
    void chooseCursor();

signals:
    void cursorChosenChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Cursor { Free, Clicked, Placed };

    void set(Cursor cursor, bool isTyping);
    void focused(Qt::FocusReason reason);
    void typed(const QKeyEvent& key);
    void released(const QMouseEvent& event);
    void doubleClicked(const QMouseEvent& event);

    QLineEdit* m_edit;
    Cursor m_cursor = Cursor::Free;
    bool m_hasHadFocus = false;
    bool m_isTyping = false; ///< a number is being typed, which goes on
    bool m_isFocusingClick = false;
};
