#include "link/library_places.h"

#include <QCoreApplication>

LibraryPlaces libraryPlaces(const QString& name)
{
    LibraryPlaces places;
    places.fileNames << QStringLiteral("lib%1.so").arg(name);
    const QString listed = QString::fromLocal8Bit(qgetenv("LD_LIBRARY_PATH"));
    const QStringList folders = listed.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const QString& folder : folders)
        places.folders << QStringLiteral("%1 (LD_LIBRARY_PATH)").arg(folder);
    places.folders << QCoreApplication::translate("LibraryPlaces", "the system's library folders");
    return places;
}
