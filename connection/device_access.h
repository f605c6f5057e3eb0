#pragma once

#include <QString>

/// Why an instrument that is plugged in cannot be opened by this user, for the status line; empty
/// when nothing stands in the way. Changes nothing.
QString deviceAccessComplaint();
