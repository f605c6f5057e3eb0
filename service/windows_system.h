#pragma once

#include "service/driver_check.h"

#include <memory>

/// This computer, for as long as the check of its driver takes.
std::unique_ptr<DriverSystem> windowsSystem();
