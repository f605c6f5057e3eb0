#pragma once

#include "visa_library/bus.h"

/// An instrument that the kernel's driver has a node for.
struct PluggedIn {
    Resource resource;
    std::string node;            ///< path of the device node
    bool asksForService = false; ///< its interface has an interrupt endpoint
};

/// The instruments that are plugged in, in the order of their nodes. Asks sysfs alone: opening a
/// node would wait for whoever uses it. Instruments without a serial number have their node's
/// number for the number of the board, which tells them apart.
std::vector<PluggedIn> pluggedIn();
