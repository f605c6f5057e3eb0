#pragma once

class NumberEdit;

/// Takes the step of a quantity, typed into a line that is set up for it, rounded and bounded, into
/// the step table and writes it back into the line. An empty line takes the clipboard's text,
/// selected, instead; nothing is stored then and the result is false.
bool acceptStepEntry(NumberEdit& line);
