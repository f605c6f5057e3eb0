#pragma once

class NumberEdit;

/// Takes the step of a quantity, typed into a line that is set up for it, rounded and bounded, into
/// the step table and writes it back into the line. An empty line is selected and given the
/// clipboard's text instead; then, with false, nothing is stored.
bool acceptStepEntry(NumberEdit& line);
