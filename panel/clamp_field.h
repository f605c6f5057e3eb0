#pragma once

#include "link/instrument_limits.h"
#include "numbers/field_kind.h"

class QLineEdit;
class QString;

/// Bounds a field's number by a closed range and writes it back as its kind is shown. Silent:
/// nothing is refused or reported. An empty field stays as it is; while both limits are 0 nothing
/// is bounded.
void clampField(double min, double max, FieldKind kind, QLineEdit* field);

/// Bounds a text of its own in the same way. True where its number lay outside; any other text,
/// numbers without known limits and what is no number among them, stays as it is.
bool boundText(QString& text, const Range<double>& range, FieldKind kind);

template <typename T>
void clampField(const Range<T>& range, FieldKind kind, QLineEdit* field)
{
    clampField(static_cast<double>(range.min), static_cast<double>(range.max), kind, field);
}
