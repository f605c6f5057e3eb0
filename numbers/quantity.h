#pragma once

#include "numbers/field_kind.h"
#include "numbers/step_kind.h"

#include <QLatin1String>

#include <optional>

/// A numeric setting of the program. Those with limits of their own come first, in the order in
/// which an instrument is asked for them.
enum class Quantity {
    Frequency,
    Power,
    PulsePeriod,
    PulseWidth,
    AmDepth,
    AmRate,
    AmDuty,
    FmDeviation,
    FmRate,
    FmDuty,
    PmDeviation,
    PmRate,
    PmDuty,
    LfDuty,
    LfAmplitude,
    LfFrequency,
    ExternalReference,
    ListDwell,
    SweepDwell,
    SweepPoints,
    ListFrequency, ///< bounded as the frequency is
    ListPower,     ///< bounded as the power is
    HighestPower,
    Dac,
};
constexpr int quantityCount = 24;

FieldKind fieldKind(Quantity quantity);

/// None for what does not step.
std::optional<StepKind> stepKind(Quantity quantity);

/// The query of the limits, ahead of " MAX" and " MIN"; empty where no instrument tells.
QLatin1String limitQuery(Quantity quantity);

/// The quantity whose limits bound this one: itself, but for the columns of a list.
Quantity boundedAs(Quantity quantity);

/// The reply to a limit query as a number in the quantity's unit. What is counted in whole numbers
/// is truncated toward zero and bounded by what a count can hold.
double limitOfReply(Quantity quantity, const QString& reply);
