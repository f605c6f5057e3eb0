#include "connection/connection_obstacle.h"

#include "link/library_places.h"
#include "link/scpi_session.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace
{
QString translated(const char* text)
{
    return QCoreApplication::translate("ConnectionObstacle", text);
}

/// Given as a path, it is looked for only there.
QString missingLibraryText(const QString& name, const QString& error)
{
    if (QFileInfo::exists(name))
        return translated(QT_TRANSLATE_NOOP("ConnectionObstacle",
                                            "The VISA library %1 cannot be loaded: %2"))
            .arg(name, error);
    if (QFileInfo(name).fileName() != name)
        return translated(QT_TRANSLATE_NOOP("ConnectionObstacle", "There is no VISA library %1"))
            .arg(name);
    const LibraryPlaces places = libraryPlaces(name);
    const QString separator = QStringLiteral(", ");
    return translated(QT_TRANSLATE_NOOP("ConnectionObstacle",
                                        "No VISA library found: install the maker's VISA library. "
                                        "Looked for %1 in: %2"))
        .arg(places.fileNames.join(separator), places.folders.join(separator));
}
} // namespace

StatusWords connectionObstacle(const VisaLibrary& visa, const ScpiSession& session,
                               std::optional<DeviceNode> node)
{
    if (visa.unresolvedCount() < 0)
        return [name = visa.name(), error = visa.loadError()] {
            return missingLibraryText(name, error);
        };
    if (session.defaultRM() == VI_NULL)
        return [name = visa.name()] {
            return translated(QT_TRANSLATE_NOOP("ConnectionObstacle",
                                                "The VISA library %1 does not start"))
                .arg(name);
        };
    if (node && !deviceAccessComplaint(*node).isEmpty())
        return [kind = *node] { return deviceAccessComplaint(kind); };
    return StatusWords();
}
