#pragma once

#include "connection/device_access.h"

/// The device node of a plugged-in instrument of the maker that this user may not read and write;
/// empty when there is none. `devicesFolder` is where the kernel lists USB devices, `nodesFolder`
/// where their nodes of this kind are.
QString inaccessibleNode(DeviceNode kind, const QString& devicesFolder, const QString& nodesFolder);
