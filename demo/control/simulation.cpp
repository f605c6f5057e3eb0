#include "demo/control/simulation.h"

Simulation& theSimulation()
{
    static Simulation simulation;
    return simulation;
}

Resource resourceOf(const InstrumentDescription& description)
{
    return {{0, 0x5645, 0x0040, description.serial, 0}, description.maker, description.model};
}
