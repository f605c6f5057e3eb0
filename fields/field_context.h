#pragma once

class InstrumentLimits;
class Notices;
class StepTable;

/// What all number fields share: limits, steps, and the notices that report a refusal. Outlives
/// them.
struct FieldContext {
    const InstrumentLimits& limits;
    StepTable& steps;
    Notices& notices;
};
