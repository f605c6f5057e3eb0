#pragma once

#include <QString>
#include <QStringList>

// Quick profiles are files of one folder whose names begin alike. The one that keeps the panel's
// state for the next start is not among them.

/// The file of the quick profile of that name.
QString quickProfilePath(const QString& folder, const QString& name);

/// The file that keeps the state at the end for the next start.
QString lastProfilePath(const QString& folder);

/// The files of the user's quick profiles, in the order of their names.
QStringList quickProfilePaths(const QString& folder);

/// The quick profile's name, from its file name.
QString nameInPath(const QString& path);

/// Whether a quick profile may have this name: it can be part of a file name and is not reserved.
bool isPossibleName(const QString& name);
bool isReservedName(const QString& name);

/// Whether the name has none of the characters that file names cannot contain everywhere.
bool isPossibleFileName(const QString& fileName);

/// What file names cannot contain, for the user to read.
QString forbiddenCharacters();

/// In characters, the folder included; a path has to be shorter.
constexpr int pathLengthLimit = 260;

/// In characters, as typed.
constexpr int nameLengthLimit = 64;
