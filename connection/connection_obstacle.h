#pragma once

#include "link/activity.h"

class ScpiSession;
class VisaLibrary;

/// What keeps every instrument from being found, checked in the order in which a person would look;
/// empty words when there is no such obstacle. `isRealBus`: the instruments are looked for on this
/// computer's bus.
StatusWords connectionObstacle(const VisaLibrary& visa, const ScpiSession& session, bool isRealBus);
