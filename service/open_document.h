#pragma once

#include <QString>

/// Opens a local file with the program that the desktop associates with it; does not wait for it.
/// False when nothing could be started.
bool openDocument(const QString& path);
