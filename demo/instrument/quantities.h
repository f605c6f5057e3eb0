#pragma once

#include "demo/instrument/scpi_text.h"

#include <algorithm>
#include <array>

/// Every number that the generator holds, in the order of the table in quantities.cpp.
enum class Quantity : size_t {
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
    LfoDuty,
    LfoAmplitude,
    LfoFrequency,
    ReferenceFrequency,
    ListDwell,
    SweepDwell,
    SweepPoints,
    StartFrequency,
    StopFrequency,
    StartPower,
    StopPower,
    Dac,
};
constexpr size_t quantityCount = static_cast<size_t>(Quantity::Dac) + 1;

struct Range {
    double minimum = 0;
    double maximum = 0;

    /// The value, bounded by the range.
    double bounded(double value) const { return std::min(std::max(value, minimum), maximum); }
};

struct Limits {
    Range& operator[](Quantity quantity) { return ranges[static_cast<size_t>(quantity)]; }
    const Range& operator[](Quantity quantity) const
    {
        return ranges[static_cast<size_t>(quantity)];
    }

    std::array<Range, quantityCount> ranges;
};

/// How a quantity is read, answered and bounded. Values are in hertz, dBm, seconds, percent,
/// radians or volts; replies are value * replyScale with the decimals and the suffix.
struct QuantityInfo {
    Quantity quantity;
    const char* name;    ///< stem of its keys in an instrument file
    const char* keyUnit; ///< unit of those keys: "frequencyMaxHz"
    double keyScale;     ///< a key's number times this is the value
    Unit unit;
    int decimals;
    double replyScale;
    const char* replySuffix;
    double minimum;
    double maximum;
    double reset;
};

const QuantityInfo& infoOf(Quantity quantity);
Limits defaultLimits();
/// The model's name says its highest frequency: "KLV-20G" reaches 20 GHz.
void applyModel(Limits& limits, const std::string& model);
/// Applies a key such as "frequencyMaxHz"; one that no quantity has changes nothing.
void applyLimitKey(Limits& limits, std::string_view key, double number);
/// Why an applied key is not valid, once all of the description is applied: "frequencyMaxHz is 0 to
/// 1000000000000"; empty if it is, or if no quantity has the key.
std::string limitFault(const Limits& limits, std::string_view key, double number);
