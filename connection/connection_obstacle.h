#pragma once

#include "connection/device_access.h"
#include "link/activity.h"

#include <optional>

class ScpiSession;
class VisaLibrary;

/// What keeps every instrument from being found, checked in the order in which a person would look;
/// empty words when there is no such obstacle. `node`: how the library reaches the instruments,
/// where they are looked for on this computer's bus.
StatusWords connectionObstacle(const VisaLibrary& visa, const ScpiSession& session,
                               std::optional<DeviceNode> node);
