#pragma once

#include <QStringList>

/// Where the system looks for a library that is loaded by a plain name.
struct LibraryPlaces {
    QStringList fileNames;
    QStringList folders; ///< paths, or words in the user's language
};

LibraryPlaces libraryPlaces(const QString& name);
