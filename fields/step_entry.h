#pragma once

#include "link/instrument_limits.h"

class QLineEdit;

/// The limits that bound the steps of a quantity.
Range stepLimits(Quantity quantity);

/// Takes the step of a quantity that steps, typed into a line, rounded and bounded, into the step
/// table and writes it back into the line. An empty line is selected and given the clipboard's text
/// instead; then, with false, nothing is stored.
bool acceptStepEntry(QLineEdit* line, Quantity quantity);
