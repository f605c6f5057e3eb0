#pragma once

#include "link/instrument_limits.h"
#include "numbers/field_kind.h"

class QLineEdit;

/// Bounds a field's number by a closed range and writes it back as its kind is shown. Silent:
/// nothing is refused or reported. An empty field stays as it is; while both limits are 0 nothing
/// is bounded.
void clampField(double min, double max, FieldKind kind, QLineEdit* field);

template <typename T>
void clampField(const Range<T>& range, FieldKind kind, QLineEdit* field)
{
    clampField(static_cast<double>(range.min), static_cast<double>(range.max), kind, field);
}
