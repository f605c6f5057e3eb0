#include "tests/support/installed_driver.h"

struct InstalledDriver::Entry {
};

InstalledDriver::InstalledDriver() = default;
InstalledDriver::~InstalledDriver() = default;
