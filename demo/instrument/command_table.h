#pragma once

#include "demo/instrument/commands.h"

/// Finds a command by its upper-case header, in any mix of short and long forms; null when there
/// is none.
const Command* findCommand(const std::string& header);
