#include "app/help_file.h"

#include "service/open_document.h"

#include <QCoreApplication>
#include <QDir>

bool openHelpFile()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        if (name.contains(QLatin1String("KLV")) && name.contains(QLatin1String("chm")))
            return openDocument(folder.filePath(name));
    }
    return false;
}
