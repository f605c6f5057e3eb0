#pragma once

#include <QString>

/// Opens a local file with the program that the desktop associates with it; does not wait for it.
/// False when nothing could be started.
bool openDocument(const QString& path);

/// Opens a help file, and where it holds many pages the one that is called so in it, such as
/// "en/sweep.html". False when nothing could be started.
bool openHelpPage(const QString& path, const QString& page);
