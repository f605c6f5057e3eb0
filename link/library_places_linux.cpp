#include "link/library_places.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include <fcntl.h>
#include <unistd.h>

namespace
{
constexpr char searchVariable[] = "LD_LIBRARY_PATH";

QStringList listedFolders()
{
    return QString::fromLocal8Bit(qgetenv(searchVariable)).split(QLatin1Char(':'));
}

/// During its lifetime the current folder is one in which nobody leaves libraries: an empty or
/// relative entry of the search path, as "$LD_LIBRARY_PATH:/opt/visa" makes one, means the current
/// folder.
class NeutralFolder
{
public:
    NeutralFolder()
    {
        if (m_before >= 0)
            m_hasLeft = chdir("/") == 0;
    }
    ~NeutralFolder()
    {
        if (m_hasLeft && fchdir(m_before) != 0)
            qWarning("The current folder cannot be entered any more");
        if (m_before >= 0)
            close(m_before);
    }
    NeutralFolder(const NeutralFolder&) = delete;
    NeutralFolder& operator=(const NeutralFolder&) = delete;

private:
    int m_before = open(".", O_PATH | O_DIRECTORY | O_CLOEXEC);
    bool m_hasLeft = false;
};
} // namespace

LibraryPlaces libraryPlaces(const QString& name)
{
    LibraryPlaces places;
    places.fileNames << QStringLiteral("lib%1.so").arg(name);
    const QStringList folders = listedFolders();
    for (const QString& folder : folders) {
        if (folder.startsWith(QLatin1Char('/')))
            places.folders << QStringLiteral("%1 (%2)").arg(folder, QLatin1String(searchVariable));
    }
    places.folders << QCoreApplication::translate("LibraryPlaces", "the system's library folders");
    return places;
}

QString ownLibraryPath()
{
    const QString program = QCoreApplication::applicationDirPath();
    // Beside the program, or where the build tree has it.
    for (const char* folder : {"/usbtmc", "/../usbtmc"}) {
        const QFileInfo file(program + QLatin1String(folder) + QStringLiteral("/libVeVISA32.so"));
        if (file.exists())
            return file.canonicalFilePath();
    }
    return QString();
}

bool loadFromPlaces(QLibrary& library, const QString& name)
{
    const NeutralFolder elsewhere;
    library.setFileName(name);
    return library.load();
}
