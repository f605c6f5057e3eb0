#pragma once

#include "fields/paste_filter.h"
#include "link/activity.h"
#include "numbers/field_kind.h"

#include <QCoreApplication>
#include <QString>

class QKeyEvent;
class QLineEdit;

/// How a number is typed into a field: unit letters are applied, digits grouped, the cursor stays
/// at its digit. After a refused point, comma, minus or exponent the digits and the unit that
/// follow are refused, too: they would make another number. A pasted text replaces the whole
/// number, or is refused as a whole. Belongs to the field, of which it knows the text, its kind and
/// its unit.
class NumberTyping
{
    Q_DECLARE_TR_FUNCTIONS(NumberEdit)

public:
    /// Reports why an entry was refused.
    using Refuse = std::function<void(const StatusWords& reason)>;

    NumberTyping(QLineEdit& field, Refuse refuse);

    /// What the number is, and the power of ten of the kind's unit that it counts in.
    void setForm(FieldKind kind, int unitPower);

    /// The field has got the focus, or another number: what was typed before does not matter.
    void forget();
    /// The user does something other than typing.
    void forgetRefusal() { m_refusal = nullptr; }

    /// True for a key that must not reach the field.
    bool swallows(const QKeyEvent& key);
    /// Puts the text just typed into the form of its kind; unfinished text such as "-" stays.
    void takeEdited(const QString& typed);
    /// Puts what the clipboard holds in the place of the number.
    void paste() { m_paste.paste(); }

private:
    bool isSurplusLetter(const QKeyEvent& key) const;
    bool typeLatinLetter(const QKeyEvent& key);
    bool refuses(const QKeyEvent& key);
    StatusWords refusalOf(QChar typed) const;
    void skipBlank(const QKeyEvent& key);
    void takePasted(const QString& text);

    QLineEdit& m_field;
    Refuse m_refuse;
    FieldKind m_kind = FieldKind::Frequency;
    int m_unitPower = 0;
    /// The text that a unit letter has produced, until something else is typed or the field gets
    /// the focus again.
    QString m_convertedText;
    /// Why digits are refused; none while they are not.
    StatusWords m_refusal;
    PasteFilter m_paste;
};
