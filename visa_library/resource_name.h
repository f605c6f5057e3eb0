#pragma once

#include "visa/visa.h"

#include <string>

/// A VISA resource name of a USB instrument, taken apart.
struct ResourceName {
    ViUInt16 board = 0;
    ViUInt16 vendor = 0;
    ViUInt16 product = 0;
    std::string serial;
    ViUInt16 interfaceNumber = 0;
    bool isInterfaceNamed = true; ///< false: its number is left out of the text

    /// The name with every part spelled out.
    std::string text() const;
};

/// Reads USB[board]::vendor::product::serial[::interface][::INSTR]; false for anything else. The
/// serial number may be empty: some instruments have none.
bool parseResourceName(const std::string& text, ResourceName& name);
