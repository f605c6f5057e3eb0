#pragma once

#include "demo/instrument/quantities.h"

#include <vector>

enum class Switch : size_t { Output, Boost, Am, Fm, Pm, Pulse, Lfo, Continuous };
constexpr size_t switchCount = static_cast<size_t>(Switch::Continuous) + 1;

/// Settings with a few named values; each holds the index of its keyword, 0 after a reset.
enum class Choice : size_t {
    ReferenceSource, ///< internal, external
    AmSource,        ///< internal, external; the three below as well
    FmSource,
    PmSource,
    PulseSource,
    AmShape, ///< sine, ramp, triangle, random, square; the two below as well
    FmShape,
    PmShape,
    LfoShape, ///< the same and DC
    AmRamp,   ///< rising, falling; the three below as well
    FmRamp,
    PmRamp,
    LfoRamp,
    FrequencyMode, ///< RunMode; PowerMode as well
    PowerMode,
    TriggerSource, ///< TriggerSource
    TriggerSlope,  ///< rising, falling
    ListMode,      ///< all points at one trigger, one point at each
};
constexpr size_t choiceCount = static_cast<size_t>(Choice::ListMode) + 1;

enum class RunMode : size_t { Fixed, Sweep, List };
enum class TriggerSource : size_t { Immediate, External, Bus };

/// All that *RST brings back: plain values, without ranges or behaviour.
struct Settings {
    std::array<double, quantityCount> numbers{};
    std::array<bool, switchCount> switches{};
    std::array<size_t, choiceCount> choices{};
    std::vector<double> listFrequencyHz;
    std::vector<double> listPowerDbm;
    std::vector<double> listDwellSeconds;

    double& number(Quantity quantity) { return numbers[static_cast<size_t>(quantity)]; }
    double number(Quantity quantity) const { return numbers[static_cast<size_t>(quantity)]; }
    bool isOn(Switch name) const { return switches[static_cast<size_t>(name)]; }
    size_t choice(Choice name) const { return choices[static_cast<size_t>(name)]; }
    template <typename Value>
    Value choiceAs(Choice name) const
    {
        return static_cast<Value>(choice(name));
    }
};

/// The state after a reset, bounded by the limits.
Settings resetSettings(const Limits& limits);
