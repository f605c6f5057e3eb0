#pragma once

#include <QString>

/// Opens a local file with the program that the desktop associates with it; does not wait for it.
/// False when nothing could be started.
bool openDocument(const QString& path);

/// Opens a help file, and, if it holds many pages, the page of that name in it, such as
/// "en/sweep.html". False when nothing could be started.
bool openHelpPage(const QString& path, const QString& page);
