#pragma once

#include "numbers/field_kind.h"
#include "fields/paste_filter.h"

#include <QObject>
#include <QString>

class QKeyEvent;
class QLineEdit;

/// Puts a text just typed into the form its kind is shown in: unit letters carried out, digits
/// grouped, the cursor still at the same digit. Does not announce an edit; unfinished text such as
/// "-" or "1." stays.
void reformatEdited(QLineEdit* field, FieldKind kind);

/// Shows a text that the instrument answered or that has been accepted. Announces nothing, and the
/// field no longer counts as edited.
void showAccepted(QLineEdit* field, const QString& text);

/// Shows what a query was answered. No text, as of a query that failed, empties the field, and what
/// was accepted before comes back with the next entry or push.
void showAnswer(QLineEdit* field, const QString& text);

/// The text that was last accepted in this field; before that, the one it was set up with.
QString acceptedText(const QLineEdit* field);

/// Sets the dynamic property "edited": true while a field holds what the user typed and has not yet
/// been accepted. The style sheet shows it.
void setEdited(QLineEdit* field, bool isEdited);
bool isEdited(const QLineEdit* field);

/// The power of ten of its kind's own unit that a field's plain number counts in: 3 while a field
/// of microseconds shows milliseconds, 0 unless set. Unit letters, steps and the keypad heed it;
/// what bounds and sends the field has to convert.
void setUnitPower(QLineEdit* field, int powerOfTen);
int unitPower(const QLineEdit* field);

/// Keeps a line edit's text in the form of its kind while the user types, and marks it as edited.
/// Once a point, a comma or an exponent was refused, so are the digits behind it: they would make
/// another number. A pasted text takes the place of the whole number, or is refused in whole.
/// Commits nothing. Belongs to the line edit.
class UnitKeyFilter : public QObject
{
    Q_OBJECT

public:
    UnitKeyFilter(QLineEdit* field, FieldKind kind);

    void setKind(FieldKind kind) { m_kind = kind; }

    /// Puts what the clipboard holds in the place of the number.
    void paste() { m_paste.paste(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isSurplusLetter(const QKeyEvent& key) const;
    bool typeLatinLetter(const QKeyEvent& key);
    bool refuses(const QKeyEvent& key);
    QString refusalOf(QChar typed) const;
    void skipBlank(const QKeyEvent& key);
    void takePasted(const QString& text);

    QLineEdit* m_field;
    FieldKind m_kind;
    /// What a unit letter has made, until something else is typed or the field is entered anew.
    QString m_convertedText;
    /// Why digits are refused; empty while they are not.
    QString m_refusal;
    PasteFilter m_paste;
};
