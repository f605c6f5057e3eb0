#pragma once

#include "numbers/field_kind.h"
#include "numbers/step_kind.h"

#include <optional>

class QLineEdit;

/// A line edit that holds a number, and what the number stands for.
struct NumericField {
    QLineEdit* edit;
    FieldKind kind;
    std::optional<StepKind> step; ///< none: the field does not step
};

/// Makes a line edit a field for numbers of a kind: it takes the kind's characters only, carries
/// out unit letters, groups digits, marks what is not yet committed, selects its text with the
/// focus and, given a step kind, steps by wheel and arrow keys. The edit remembers its kinds; call
/// once for each edit. Bounds and sends nothing.
void setUpNumericField(QLineEdit* edit, FieldKind kind,
                       std::optional<StepKind> step = std::nullopt);

/// Makes a field that was set up one for another kind, stepped as `step`. Its text is the caller's.
void changeFieldKind(QLineEdit* edit, FieldKind kind, StepKind step);

/// What a line edit was set up for; none for one that was not.
std::optional<NumericField> numericField(QLineEdit* edit);

/// Whether what a field announces now is a step by wheel, arrow keys or keypad.
bool isBeingStepped(QLineEdit* edit);

/// Steps a field that was set up with a step kind as its wheel would; any other field stays.
void stepNumericField(QLineEdit* edit, int direction);
