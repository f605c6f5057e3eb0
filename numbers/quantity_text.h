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
