#include "app/help_file.h"

#include "app/language.h"
#include "service/open_document.h"

#include <QCoreApplication>
#include <QDir>

namespace
{
// As a build, a program among the commands and one in a folder of its own see it.
const char* const manualFolders[] = {"manual", "../share/doc/klv/manual",
                                     "../../share/doc/klv/manual"};
} // namespace

QString helpFile(const QString& applicationFolder, const QString& languageCode)
{
    const QDir folder(applicationFolder);
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        if (name.contains(QLatin1String("KLV")) && name.contains(QLatin1String("chm")))
            return folder.filePath(name);
    }
    for (const char* manual : manualFolders) {
        const QString page =
            QStringLiteral("%1/%2/index.html").arg(QLatin1String(manual), languageCode);
        if (folder.exists(page))
            return QDir::cleanPath(folder.filePath(page));
    }
    return QString();
}

bool openHelpFile()
{
    const QString language = Language::isRussian() ? QStringLiteral("ru") : QStringLiteral("en");
    const QString file = helpFile(QCoreApplication::applicationDirPath(), language);
    return !file.isEmpty() && openDocument(file);
}
