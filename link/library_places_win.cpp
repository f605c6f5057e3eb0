#include "link/library_places.h"

#include <QCoreApplication>
#include <QDir>

#include <windows.h>

LibraryPlaces libraryPlaces(const QString& name)
{
    wchar_t systemFolder[MAX_PATH] = {};
    GetSystemDirectoryW(systemFolder, MAX_PATH);
    return {{name + QStringLiteral(".dll")},
            {QDir::toNativeSeparators(QCoreApplication::applicationDirPath()),
             QString::fromWCharArray(systemFolder),
             QCoreApplication::translate("LibraryPlaces", "the folders of PATH")}};
}
