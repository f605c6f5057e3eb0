#include "app/help_file.h"

#include "service/open_document.h"
#include "ui/language.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QWidget>

namespace
{
const QString contentsPage = QStringLiteral("index");
// As a build, a program among the commands and one in a folder of its own see it.
const char* const manualFolders[] = {"manual", "../share/doc/klv/manual",
                                     "../../share/doc/klv/manual"};
} // namespace

QString helpPageOf(const QWidget* panel)
{
    static const QHash<QString, QString> pages = {
        {QStringLiteral("Modulat"), QStringLiteral("modulation")},
        {QStringLiteral("List"), QStringLiteral("sweep")},
        {QStringLiteral("generator"), QStringLiteral("lf-generator")},
        {QStringLiteral("openSaveProfile"), QStringLiteral("profiles")},
        {QStringLiteral("service_panel"), QStringLiteral("service")},
    };
    return panel ? pages.value(panel->objectName(), contentsPage) : contentsPage;
}

QString helpFile(const QString& applicationFolder, const QString& languageCode, const QString& page)
{
    const QDir folder(applicationFolder);
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        if (name.contains(QLatin1String("KLV")) && name.contains(QLatin1String("chm")))
            return folder.filePath(name);
    }
    for (const QString& name : {page, contentsPage}) {
        for (const char* manual : manualFolders) {
            const QString path =
                QStringLiteral("%1/%2/%3.html").arg(QLatin1String(manual), languageCode, name);
            if (folder.exists(path))
                return QDir::cleanPath(folder.filePath(path));
        }
    }
    return QString();
}

StatusWords openHelp(const QString& page)
{
    const QString language = Language::isRussian() ? QStringLiteral("ru") : QStringLiteral("en");
    const QString folder = QCoreApplication::applicationDirPath();
    const QString file = helpFile(folder, language, page);
    if (file.isEmpty())
        return [folder] {
            return QCoreApplication::translate("Help", "There is no help file in %1")
                .arg(QDir::toNativeSeparators(folder));
        };
    if (openHelpPage(file, QStringLiteral("%1/%2.html").arg(language, page)))
        return nullptr;
    return [file] {
        return QCoreApplication::translate("Help", "No program could be started that opens %1")
            .arg(QDir::toNativeSeparators(file));
    };
}
