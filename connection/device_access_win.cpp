#include "connection/device_access.h"

// Windows guards the driver, not the instrument.
QString deviceAccessComplaint()
{
    return QString();
}
