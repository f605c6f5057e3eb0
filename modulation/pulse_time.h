#pragma once

#include "numbers/quantity.h"

#include <QString>

class QAbstractButton;
class QLineEdit;

/// A field for a time that is shown and typed in µs, ms, s or ns, while its value always counts in
/// microseconds. Conversions move the point in the text and lose no digit that can be sent. Owns
/// neither the field nor the button that tells the unit.
class PulseTime
{
public:
    /// Sets the field up.
    PulseTime(QLineEdit* field, QAbstractButton* unitButton, Quantity quantity);

    QLineEdit* field() const { return m_field; }

    double microseconds() const;
    /// The field's text in microseconds, as its kind is shown; empty for an empty field.
    QString textUs() const;
    /// What was last accepted, whatever is being typed, in the same form.
    QString acceptedTextUs() const;
    /// Shows what the instrument answered or what has been accepted, in microseconds as its kind is
    /// shown. Announces nothing.
    void showAcceptedUs(const QString& textUs);

    /// From µs to ms, s, ns and again to µs. The value stays.
    void nextUnit();
    void useMicroseconds();

    void retranslate();

private:
    void setUnitOf(int power);
    QString shownText(const QString& textUs) const;
    QString inMicroseconds(const QString& text) const;

    QLineEdit* m_field;
    QAbstractButton* m_unitButton;
    FieldKind m_kind;
};
