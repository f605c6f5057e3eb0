#include "ui/files/user_folder.h"

#include <QDir>
#include <QStandardPaths>

QString userFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir::toNativeSeparators(documents + QStringLiteral("/Veltro KLV"));
}

QString madeUserFolder()
{
    const QString folder = userFolder();
    QDir().mkpath(folder);
    return folder;
}
