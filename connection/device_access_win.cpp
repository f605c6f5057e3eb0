#include "connection/device_access.h"

// Windows checks access to the driver, not to the instrument.
QString deviceAccessComplaint(DeviceNode)
{
    return QString();
}
