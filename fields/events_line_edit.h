#pragma once

#include "numbers/stepping.h"

#include <QObject>
#include <QString>

class QLineEdit;
class StepTable;

/// Steps the number in a focused line edit: the wheel and Up/Down by the step of its kind, the same
/// with Ctrl by the digit at the cursor. Each step commits at once and leaves the cursor at its
/// digit. Installs itself on the line edit, which owns it; owns neither steps nor limits.
class EventsLineEdit : public QObject
{
    Q_OBJECT

public:
    EventsLineEdit(QLineEdit* edit, StepKind kind, const StepTable& steps);

    void setKind(StepKind kind);
    /// Steps count in the kind's own unit; the edit's numbers in that power of ten of it.
    void set(StepFlags flags, int unitPower);

    /// One step up (direction 1) or down (-1), as by the wheel; the focus does not matter.
    void step(int direction);

    /// A step is being announced.
    bool isCommitting() const { return m_isCommitting; }

    /// Where in the text the digit stands that Ctrl steps; none where the number does not show it.
    std::optional<int> digitPosition() const;

signals:
    /// By the digit at the cursor.
    void digitStepped();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Where the last step left the cursor. The place is remembered because a number that has
    /// become shorter no longer shows it.
    struct DigitCursor {
        QString text;
        int position = -1;
        int decimalPlace = 0;
    };

    void stepDigit(int direction);
    void commit();
    std::optional<int> placeAtCursor() const;
    void commitAtPlace(const QString& before, int cursor, std::optional<int> decimalPlace);

    QLineEdit* m_edit;
    StepKind m_kind;
    const StepTable& m_steps;
    StepFlags m_flags;
    int m_unitPower = 0;
    DigitCursor m_lastStep;
    bool m_isCommitting = false;
};
