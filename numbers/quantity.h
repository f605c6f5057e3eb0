#pragma once

#include "numbers/field_kind.h"
#include "numbers/step_kind.h"

#include <QString>

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
    // Of a sweep over frequency, then of one over power; bounded as frequency and power are.
    SweepFixedPower,
    SweepStartFrequency,
    SweepStopFrequency,
    SweepFixedFrequency,
    SweepStartPower,
    SweepStopPower,
};
constexpr int quantityCount = 30;

FieldKind fieldKind(Quantity quantity);

/// None for what does not step.
std::optional<StepKind> stepKind(Quantity quantity);

/// The query of the limits, ahead of " MAX" and " MIN"; empty where the instrument has none.
QLatin1String limitQuery(Quantity quantity);

/// The quantity whose limits bound this one: itself, except for the values of sweeps and lists.
Quantity boundedAs(Quantity quantity);

/// A field's full name and its purpose, in the chosen language.
QString quantityName(Quantity quantity);
QString quantityToolTip(Quantity quantity);

/// The reply to a limit query as a number in the quantity's unit. Counts are truncated toward zero
/// and bounded by what an int can hold.
double limitOfReply(Quantity quantity, const QString& reply);
