#pragma once

#include "demo/control/faults.h"
#include "demo/control/rack.h"
#include "demo/control/wire_log.h"

/// The simulated instruments of this process, with the faults that tests order and the record of
/// the traffic. Bus and control interface work on it, with the library locked.
struct Simulation {
    Rack rack;
    Faults faults;
    WireLog wire;
    std::optional<Fault> dueFault; ///< at the call that has just begun
    unsigned long long callCount = 0;
};

Simulation& theSimulation();

Resource resourceOf(const InstrumentDescription& description);
