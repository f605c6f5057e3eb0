#pragma once

#include "numbers/quantity.h"

#include <optional>

class QLineEdit;

/// A line edit that holds a number, and what the number stands for.
struct NumericField {
    QLineEdit* edit;
    Quantity quantity;
    FieldKind kind;
    std::optional<StepKind> step; ///< none: the field does not step
};

/// Makes a line edit the field of a quantity: it takes the characters of its kind only, carries out
/// unit letters, groups digits, marks what is not yet committed, selects its text with the focus
/// and, where the quantity steps, steps by wheel and arrow keys. The edit remembers its quantity;
/// call once for each edit. Bounds and sends nothing.
void setUpNumericField(QLineEdit* edit, Quantity quantity);

/// Makes a field that was set up one for another quantity, which has to step as the first one does.
/// Its text is the caller's.
void changeQuantity(QLineEdit* edit, Quantity quantity);

/// What a line edit was set up for; none for one that was not.
std::optional<NumericField> numericField(QLineEdit* edit);

/// Whether what a field announces now is a step by wheel, arrow keys or keypad.
bool isBeingStepped(QLineEdit* edit);

/// Steps a field that was set up with a step kind as its wheel would; any other field stays.
void stepNumericField(QLineEdit* edit, int direction);
