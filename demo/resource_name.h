#pragma once

#include "visa/visa.h"

#include <optional>
#include <regex>
#include <string>

/// A VISA resource name of a USB instrument, taken apart.
struct ResourceName {
    ViUInt16 board = 0;
    ViUInt16 vendor = 0;
    ViUInt16 product = 0;
    std::string serial;
    ViUInt16 interfaceNumber = 0;

    /// The name with every part spelled out.
    std::string text() const;
};

/// Reads USB[board]::vendor::product::serial[::interface][::INSTR]; false for anything else.
bool parseResourceName(const std::string& text, ResourceName& name);

/// A search expression by the VISA rules: ? any character, * and + repeat what stands before,
/// [list], [^list], | and ( ); in any case, over the whole name. Conditions on attributes in
/// braces are not known.
class ResourceFilter
{
public:
    static std::optional<ResourceFilter> from(const std::string& expression);
    bool matches(const std::string& name) const;

private:
    std::regex m_pattern;
};
