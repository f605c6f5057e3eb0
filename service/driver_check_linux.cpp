#include "service/driver_check.h"

#include "service/device_access.h"

DriverCheck checkDriver()
{
    const QString complaint = deviceAccessComplaint();
    return {complaint.isEmpty(), complaint};
}
