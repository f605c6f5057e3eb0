#pragma once

#include <memory>

class Activity;
class ScpiSession;

// What the sequences of the modulations and the LF generator have in common.

/// How long the instrument takes to settle between two commands.
constexpr int settleMs = 400;

/// Tells, as long as it lives, that a modulation is being set. Null without an instrument, where
/// nothing takes its time.
std::unique_ptr<Activity> settingModulation(const ScpiSession& session);
