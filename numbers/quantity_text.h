#pragma once

#include "numbers/field_kind.h"

#include <QString>

#include <optional>

/// The number in a text from another program, in the unit of the kind or, with `plainPower`, in
/// that power of ten of it: "2.45 GHz" is 2450000000 for a frequency. Accepts a sign, digits
/// grouped by threes with blanks of any kind, commas or points, a comma or a point before the
/// fraction, an exponent, and a unit of the kind in English or Russian, in any case. A lone comma
/// is a decimal comma. Returns a plain decimal number; none if a part of the text cannot be read.
std::optional<QString> readQuantity(const QString& text, FieldKind kind, int plainPower = 0);

/// What the heading of a column says about its unit.
struct HeadingUnit {
    int powerOfTen = 0;     ///< of the kind's own unit
    bool isForeign = false; ///< it names a unit of something else
};

/// Of headings such as "Freq [MHz]", "Dwell, ms" or "GHz": the unit is what stands in brackets,
/// else the last word. A heading without a unit counts in the kind's own.
HeadingUnit headingUnit(const QString& heading, FieldKind kind);
