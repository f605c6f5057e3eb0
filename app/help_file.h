#pragma once

#include <QString>

/// The help for a program in `applicationFolder`: the first file there whose name contains "KLV"
/// and "chm"; without one the first page of the manual in the language "en" or "ru", where a build
/// or an installation puts it. Empty when there is none.
QString helpFile(const QString& applicationFolder, const QString& languageCode);

/// Opens the help in the program's language. False when there is none.
bool openHelpFile();
