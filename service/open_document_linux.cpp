#include "service/open_document.h"

#include <QDesktopServices>
#include <QUrl>

bool openDocument(const QString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool openHelpPage(const QString& path, const QString&)
{
    return openDocument(path);
}
