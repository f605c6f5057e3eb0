#pragma once

#include "fields/field_context.h"
#include "fields/number_typing.h"
#include "numbers/quantity.h"
#include "numbers/range.h"
#include "numbers/stepping.h"

#include <QLineEdit>

class EventsLineEdit;
class selectLine;

/// The field of a quantity: takes the characters of its kind only, applies unit letters, groups
/// digits, marks what is not yet accepted, selects its text with the focus, steps by wheel and
/// arrow keys and underlines the digit that they step with Ctrl once the user has chosen one. A
/// click on a button takes no focus from a field that steps, unless the button has the property
/// "takesFocus". Signals a commit by editingFinished: on Return, on each step, and when it is left
/// with a text that differs from the accepted one. Escape restores the accepted one. Sends nothing.
class NumberEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// For a form, which knows no quantity; to be set up before use.
    explicit NumberEdit(QWidget* parent = nullptr);
    NumberEdit(Quantity quantity, const FieldContext& context, QWidget* parent = nullptr,
               const QString& text = QString());

    /// Called once. The current text counts as accepted.
    void setUp(Quantity quantity, const FieldContext& context);
    /// Changes the quantity. The text is left to the caller.
    void setQuantity(Quantity quantity);
    void setStepFlags(StepFlags flags);

    Quantity quantity() const { return m_quantity; }
    FieldKind kind() const { return fieldKind(m_quantity); }
    const FieldContext& context() const { return *m_context; }
    /// The limits of the quantity, in its unit.
    const Range& range() const;

    /// The power of ten of the quantity's unit that the field's numbers count in: 3 while a field
    /// of microseconds shows milliseconds. The number stays and is shown in the other unit.
    int unitPower() const { return m_unitPower; }
    void setUnitPower(int powerOfTen);

    /// The number in the quantity's own unit, as its kind is shown; an unfinished one as it stands.
    QString ownText() const { return inOwnUnit(text()); }
    double value() const;
    /// What was last accepted, whatever is being typed; in the own unit, too.
    QString acceptedText() const { return m_acceptedText; }
    double acceptedValue() const;

    /// Whether the user's text has not been accepted yet. The style sheet reads it as "edited".
    bool isEdited() const { return m_isEdited; }
    void setEdited(bool isEdited);

    bool hasNumber() const;
    /// False for a text that is not a number: the accepted one is restored then, and a notice
    /// reports the refusal.
    bool takeNumber();
    /// Bounds the number by its range, silently, and writes it as its kind is shown. Nothing is
    /// bounded until the range has been read from an instrument; an empty field stays empty.
    void clamp();
    /// The same, and what is left is accepted.
    void acceptClamped();

    /// Shows an accepted value or a reply, silently, in the quantity's unit.
    void showAccepted(const QString& ownText);
    /// Shows the reply to a query. An empty one, of a query that failed, empties the field; one
    /// that is not a number reads as 0 and marks it. What was accepted before comes back when the
    /// field is left, with the next entry or push.
    void showAnswer(const QString& reply);
    /// Reports why an entry was refused, after the field's name.
    void refuse(const StatusWords& reason);

    /// Enters a text as the user would, and commits it once, as by Return.
    void commit(const QString& text);
    /// Replaces the number by the clipboard's contents.
    void paste() { m_typing.paste(); }
    /// One step up (direction 1) or down (-1), as by the wheel; nothing where the quantity does not
    /// step.
    void step(int direction);
    /// Whether the commit being signalled is a step.
    bool isBeingStepped() const;

    /// Takes over the quantity's name and tool-tip in the chosen language.
    void describe();
    /// The letters that scale a number typed here, in the chosen language; empty for none.
    QString unitLettersHint() const;
    /// Describes a button that opens the keypad for this field.
    void describeKeypadKey(QWidget& key) const;

signals:
    /// Another text than before has been accepted, in the quantity's unit.
    void accepted(const QString& ownText);
    /// An entry was refused, which has been reported, too.
    void refused(const StatusWords& reason);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void accept(const QString& ownText);
    QString inOwnUnit(const QString& text) const;
    QString inShownUnit(const QString& ownText) const;
    void settleDoubt();
    bool leave(QFocusEvent* event);
    void refill();
    bool bringBack();
    QRect digitLine() const;

    const FieldContext* m_context = nullptr;
    Quantity m_quantity = Quantity::Frequency;
    int m_unitPower = 0;
    QString m_acceptedText;
    bool m_isEdited = false;
    QString m_doubtedText; ///< shown for a reply that is not a number, until something else is
    NumberTyping m_typing;
    EventsLineEdit* m_stepping = nullptr;
    selectLine* m_selection = nullptr;
    StepFlags m_stepFlags;
};
