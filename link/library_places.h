#pragma once

#include <QStringList>

class QLibrary;

/// Where the system looks for a library that is loaded by a plain name.
struct LibraryPlaces {
    QStringList fileNames;
    QStringList folders; ///< paths, or words in the user's language
};

LibraryPlaces libraryPlaces(const QString& name);

/// The VISA library for real instruments that comes with the program; empty where none does.
QString ownLibraryPath();

/// Loads the library of that plain name from those places, and never from the current folder, which
/// may be one that a document was opened from. False: not there, or not loadable.
bool loadFromPlaces(QLibrary& library, const QString& name);
