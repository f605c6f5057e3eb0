#pragma once

#include <memory>

class Activity;
class ScpiSession;

// What the sequences of the modulations and the LF generator have in common.

/// The instrument's settling time between two commands.
constexpr int settleMs = 400;

/// The activity of setting a modulation, shown during its lifetime. Null without an instrument,
/// where nothing has to settle.
std::unique_ptr<Activity> settingModulation(const ScpiSession& session);
