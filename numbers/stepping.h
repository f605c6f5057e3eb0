#pragma once

#include "numbers/step_kind.h"

#include <QString>

#include <optional>

/// How a field is stepped, apart from its kind.
struct StepFlags {
    bool silent = false;     ///< a step is not announced, and no kind steps below zero
    bool forceFloat = false; ///< always floating point, and any kind may step below zero
};

/// Whether a step below zero becomes 0. Frequency, power, PM deviation and LF amplitude are exempt:
/// their commits bound them.
bool stopsAtZero(StepKind kind, StepFlags flags);

/// A field's text one step up (direction 1) or down (-1), grouped. Text without a point is stepped
/// in whole numbers, and stays within 64 bits.
QString steppedText(const QString& text, int direction, StepKind kind, double step,
                    StepFlags flags = {});

/// The decimal place that a cursor stands at: 0 for the ones, 3 for the thousands, -1 for the
/// tenths. It is that of the digit left of the cursor, at the very start that of the first digit.
/// None where the text is no plain decimal number.
std::optional<int> decimalPlaceAt(const QString& text, int cursor);

/// Where the cursor stands right behind the digit of a decimal place; at the start when the number
/// has no such digit.
int cursorBehindPlace(const QString& text, int decimalPlace);

/// A field's text with the digit of one decimal place stepped up (direction 1) or down (-1),
/// carrying into its neighbours, grouped. Exact for any number of digits; the decimals are kept.
/// Text that is no plain decimal number is returned as it is.
QString steppedPlace(const QString& text, int decimalPlace, int direction, bool stopAtZero);
