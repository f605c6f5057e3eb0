#pragma once

#include "numbers/field_kind.h"

#include <QString>

#include <optional>

/// The number that a text from elsewhere gives, in the unit of the kind or, with `plainPower`, in
/// that power of ten of it: "2.45 GHz" is 2450000000 for a frequency. Read are a sign, digits
/// grouped by threes with blanks of any kind, commas or points, a comma or a point before the
/// fraction, an exponent, and a unit of the kind in English or Russian, in any case. A lone comma
/// is a decimal comma. A plain decimal; none where a part of the text would be left over.
std::optional<QString> readQuantity(const QString& text, FieldKind kind, int plainPower = 0);
