#pragma once

#include "link/instrument_limits.h"

class QLineEdit;
class QString;

/// Bounds a numeric field by the limits of its quantity and writes it back as its kind is shown.
/// Silent: nothing is refused or reported. An empty field stays as it is; while no instrument has
/// told the limits nothing is bounded.
void clampField(const InstrumentLimits& limits, QLineEdit* field);

/// Bounds a text of its own in the same way. True where its number lay outside; any other text,
/// numbers without known limits and what is no number among them, stays as it is.
bool boundText(QString& text, const InstrumentLimits& limits, Quantity quantity);
