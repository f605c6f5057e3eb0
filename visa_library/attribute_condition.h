#pragma once

#include "visa_library/bus.h"

#include <functional>
#include <optional>

/// Whether an instrument fulfils a condition.
using AttributeCondition = std::function<bool(const Resource&)>;

/// Reads what stands in the braces of a search expression: comparisons of attributes with numbers
/// or texts in double quotes, joined by && || ! and parentheses. Known are the attributes that do
/// not need the instrument opened. Nothing where it breaks the rules.
std::optional<AttributeCondition> attributeCondition(std::string_view text);
