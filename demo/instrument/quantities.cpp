#include "demo/instrument/quantities.h"

#include <cctype>
#include <cstdlib>

namespace
{

// Pulse times are answered in microseconds with their unit, the dwell times in plain microseconds,
// although both are set in seconds: a peculiarity of the family.
// clang-format off
const QuantityInfo quantities[] = {
    // quantity                    name                  key unit and scale  unit           reply: decimals, scale, suffix  min    max      reset
    {Quantity::Frequency,          "frequency",          "Hz",      1,    Unit::Hertz,   3,    1, "",     100e3, 20e9,    1e9},
    {Quantity::Power,              "power",              "Dbm",     1,    Unit::Dbm,     2,    1, "",     -20,   20,      0},
    {Quantity::PulsePeriod,        "pulsePeriod",        "Us",      1e-6, Unit::Second,  3,  1e6, " US",  2e-6,  10,      1e-3},
    {Quantity::PulseWidth,         "pulseWidth",         "Us",      1e-6, Unit::Second,  3,  1e6, " US",  1e-6,  9.999999, 1e-6},
    {Quantity::AmDepth,            "amDepth",            "Percent", 1,    Unit::Percent, 2,    1, "",     0,     100,     50},
    {Quantity::AmRate,             "amRate",             "Hz",      1,    Unit::Hertz,   3,    1, "",     0.1,   100e3,   1e3},
    {Quantity::AmDuty,             "amDuty",             "Percent", 1,    Unit::Percent, 1,    1, "",     1,     99,      50},
    {Quantity::FmDeviation,        "fmDeviation",        "Hz",      1,    Unit::Hertz,   6,    1, "",     0,     20e6,    1e3},
    {Quantity::FmRate,             "fmRate",             "Hz",      1,    Unit::Hertz,   3,    1, "",     0.2,   200e3,   1e3},
    {Quantity::FmDuty,             "fmDuty",             "Percent", 1,    Unit::Percent, 1,    1, "",     2,     98,      50},
    {Quantity::PmDeviation,        "pmDeviation",        "Rad",     1,    Unit::Radian,  6,    1, "",     0,     20,      1},
    {Quantity::PmRate,             "pmRate",             "Hz",      1,    Unit::Hertz,   3,    1, "",     0.5,   50e3,    1e3},
    {Quantity::PmDuty,             "pmDuty",             "Percent", 1,    Unit::Percent, 1,    1, "",     3,     97,      50},
    {Quantity::LfoDuty,            "lfoDuty",            "Percent", 1,    Unit::Percent, 1,    1, "",     5,     95,      50},
    {Quantity::LfoAmplitude,       "lfoAmplitude",       "V",       1,    Unit::Volt,    4,    1, "",     0,     5,       1},
    {Quantity::LfoFrequency,       "lfoFrequency",       "Hz",      1,    Unit::Hertz,   3,    1, "",     1,     1e6,     10e3},
    {Quantity::ReferenceFrequency, "referenceFrequency", "Hz",      1,    Unit::Hertz,   6, 1e-6, " MHZ", 1e6,   100e6,   10e6},
    {Quantity::ListDwell,          "listDwell",          "Us",      1e-6, Unit::Second,  3,  1e6, "",     50e-6, 100,     1e-3},
    {Quantity::SweepDwell,         "sweepDwell",         "Us",      1e-6, Unit::Second,  3,  1e6, "",     20e-6, 200,     1e-3},
    {Quantity::SweepPoints,        "sweepPoints",        "",        1,    Unit::None,    0,    1, "",     2,     65535,   101},
    {Quantity::StartFrequency,     "startFrequency",     "Hz",      1,    Unit::Hertz,   3,    1, "",     100e3, 20e9,    100e3},
    {Quantity::StopFrequency,      "stopFrequency",      "Hz",      1,    Unit::Hertz,   3,    1, "",     100e3, 20e9,    20e9},
    {Quantity::StartPower,         "startPower",         "Dbm",     1,    Unit::Dbm,     2,    1, "",     -20,   20,      -20},
    {Quantity::StopPower,          "stopPower",          "Dbm",     1,    Unit::Dbm,     2,    1, "",     -20,   20,      20},
    {Quantity::Dac,                "dac",                "",        1,    Unit::None,    0,    1, "",     0,     65535,   32768},
};
// clang-format on

/// The largest limits that the arithmetic of runs, tables and replies can handle, in the unit that
/// is set.
const struct {
    Unit unit;
    Range range;
} widestRanges[] = {
    {Unit::Hertz, {0, 1e12}},  {Unit::Dbm, {-1000, 1000}}, {Unit::Second, {1e-9, 1e6}},
    {Unit::Percent, {0, 1e3}}, {Unit::Radian, {0, 1e6}},   {Unit::Volt, {0, 1e6}},
    {Unit::None, {0, 65535}},
};

struct LimitKey {
    const QuantityInfo* info = nullptr;
    bool isMinimum = false;
};

LimitKey findLimitKey(std::string_view key)
{
    for (const QuantityInfo& info : quantities) {
        const std::string stem = info.name;
        const bool isMinimum = equalIgnoringCase(key, stem + "Min" + info.keyUnit);
        if (isMinimum || equalIgnoringCase(key, stem + "Max" + info.keyUnit))
            return {&info, isMinimum};
    }
    return {};
}

// Start and stop can never leave the range of what they sweep.
void alignSweepLimits(Limits& limits)
{
    limits[Quantity::StartFrequency] = limits[Quantity::Frequency];
    limits[Quantity::StopFrequency] = limits[Quantity::Frequency];
    limits[Quantity::StartPower] = limits[Quantity::Power];
    limits[Quantity::StopPower] = limits[Quantity::Power];
}

} // namespace

const QuantityInfo& infoOf(Quantity quantity)
{
    static_assert(std::size(quantities) == quantityCount);
    return quantities[static_cast<size_t>(quantity)];
}

Limits defaultLimits()
{
    Limits limits;
    for (const QuantityInfo& info : quantities)
        limits[info.quantity] = {info.minimum, info.maximum};
    return limits;
}

void applyModel(Limits& limits, const std::string& model)
{
    const size_t digits = model.find_first_of("0123456789");
    if (digits == model.npos)
        return;
    char* end = nullptr;
    const long gigahertz = std::strtol(model.c_str() + digits, &end, 10);
    if (upperCase(*end) == 'G' && gigahertz > 0 && gigahertz < 1000)
        limits[Quantity::Frequency].maximum = 1e9 * static_cast<double>(gigahertz);
    alignSweepLimits(limits);
}

void applyLimitKey(Limits& limits, std::string_view key, double number)
{
    const LimitKey found = findLimitKey(key);
    if (found.info == nullptr)
        return;
    Range& range = limits[found.info->quantity];
    (found.isMinimum ? range.minimum : range.maximum) = number * found.info->keyScale;
    alignSweepLimits(limits);
}

std::string limitFault(const Limits& limits, std::string_view key, double number)
{
    const LimitKey found = findLimitKey(key);
    if (found.info == nullptr)
        return {};
    const QuantityInfo& info = *found.info;
    const auto widest =
        std::find_if(std::begin(widestRanges), std::end(widestRanges), [&](const auto& row) {
            return row.unit == info.unit;
        })->range;
    const double value = number * info.keyScale;
    if (!(value >= widest.minimum && value <= widest.maximum))
        return std::string(key) + " is " + numberText(widest.minimum / info.keyScale, 9) + " to " +
               numberText(widest.maximum / info.keyScale, 9);
    const Range& range = limits[info.quantity];
    return range.minimum > range.maximum
               ? std::string(key) + " puts the lowest value above the highest"
               : std::string();
}
