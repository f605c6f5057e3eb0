#pragma once

#include "fields/paste_filter.h"
#include "link/activity.h"

#include <QString>

class NumberEdit;
class QKeyEvent;

/// How a number is typed into a field: unit letters are applied, digits grouped, the cursor stays
/// at its digit. After a refused point, comma, minus or exponent the digits and the unit that
/// follow are refused, too: they would make another number. A pasted text replaces the whole
/// number, or is refused as a whole. Belongs to the field.
class NumberTyping
{
public:
    explicit NumberTyping(NumberEdit& field);

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

    NumberEdit& m_field;
    /// The text that a unit letter has produced, until something else is typed or the field gets
    /// the focus again.
    QString m_convertedText;
    /// Why digits are refused; none while they are not.
    StatusWords m_refusal;
    PasteFilter m_paste;
};
