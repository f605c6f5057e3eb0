#pragma once

#include "numbers/stepping.h"

#include <QObject>
#include <QString>

class QLineEdit;
class StepTable;

/// Steps the number in a focused line edit: the wheel and Up/Down by the step of its kind,
/// Ctrl+Up/Down by the digit at the cursor. Each step commits at once. Installs itself on the line
/// edit, which owns it; owns neither steps nor limits.
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

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Where the last digit step left the cursor. The place is remembered because a number that
    /// has become shorter no longer shows it.
    struct DigitCursor {
        QString text;
        int position = -1;
        int decimalPlace = 0;
    };

    void stepDigit(int direction);
    void commit();

    QLineEdit* m_edit;
    StepKind m_kind;
    const StepTable& m_steps;
    StepFlags m_flags;
    int m_unitPower = 0;
    DigitCursor m_lastDigit;
    bool m_isCommitting = false;
};
