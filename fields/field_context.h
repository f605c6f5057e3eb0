#pragma once

class InstrumentLimits;
class Notices;
class StepTable;

/// What all fields of numbers share: what bounds them, what they step by, and who is told of a
/// refusal. Outlives them.
struct FieldContext {
    const InstrumentLimits& limits;
    StepTable& steps;
    Notices& notices;
};
