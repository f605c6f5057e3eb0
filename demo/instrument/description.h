#pragma once

#include "demo/instrument/quantities.h"

/// What distinguishes one generator from another.
struct InstrumentDescription {
    std::string serial = "20215678";
    std::string maker = "Veltro";
    std::string model = "KLV-20G";
    std::string firmware = "2.7.1";
    std::string calibrationDue = "15.03.2027";
    bool massStorage = false;
    bool referencePresent = true; ///< a signal at the external reference input
    unsigned latencyUs = 0;
    Limits limits = defaultLimits();
};
