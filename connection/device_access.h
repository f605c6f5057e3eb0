#pragma once

#include <QString>

/// How a VISA library reaches an instrument: by the device on USB itself, or by the kernel's driver
/// for instruments.
enum class DeviceNode { Usb, UsbTmc };

/// Why an instrument that is plugged in cannot be opened by this user, for the status line; empty
/// when nothing stands in the way. Changes nothing.
QString deviceAccessComplaint(DeviceNode kind);
