#include "link/library_places.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <windows.h>

namespace
{
const QString suffix = QStringLiteral(".dll");

QString fileNameOf(const QString& name)
{
    return name.endsWith(suffix, Qt::CaseInsensitive) ? name : name + suffix;
}

QString systemFolder()
{
    wchar_t folder[MAX_PATH] = {};
    GetSystemDirectoryW(folder, MAX_PATH);
    return QString::fromWCharArray(folder);
}

/// A relative entry of the variable would mean the current folder.
QStringList pathFolders()
{
    QStringList folders;
    const QStringList listed =
        qEnvironmentVariable("PATH").split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (QString folder : listed) {
        folder.remove(QLatin1Char('"'));
        if (QDir::isAbsolutePath(folder))
            folders << folder;
    }
    return folders;
}
} // namespace

LibraryPlaces libraryPlaces(const QString& name)
{
    return {{fileNameOf(name)},
            {QDir::toNativeSeparators(QCoreApplication::applicationDirPath()), systemFolder(),
             QCoreApplication::translate("LibraryPlaces", "the folders of PATH")}};
}

// The maker's library alone speaks to the maker's driver.
QString ownLibraryPath()
{
    return QString();
}

// By full paths: a plain name would be searched in the current folder before those of PATH.
bool loadFromPlaces(QLibrary& library, const QString& name)
{
    // The libraries that it loads in turn must not come from there either.
    SetDllDirectoryW(L"");
    const QString fileName = fileNameOf(name);
    const QStringList folders =
        QStringList{QCoreApplication::applicationDirPath(), systemFolder()} + pathFolders();
    for (const QString& folder : folders) {
        const QString path = QDir(folder).filePath(fileName);
        if (!QFileInfo::exists(path))
            continue;
        library.setFileName(path);
        if (library.load())
            return true;
    }
    return false;
}
