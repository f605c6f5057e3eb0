#pragma once

#include "link/instrument_limits.h"
#include "numbers/step_kind.h"

class QLineEdit;

/// The limits that bound the steps of a kind.
Range<double> stepLimits(StepKind kind);

/// Takes the step typed into a line, rounded and bounded, into the step table and writes it back
/// into the line. An empty line is selected and given the clipboard's text instead; then, with
/// false, nothing is stored.
bool acceptStepEntry(QLineEdit* line, StepKind kind);
