#include "profiles/profile_folder.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace
{
const QString prefix = QStringLiteral("QUICK_Profile_");
const QString suffix = QStringLiteral(".xml");
const QString lastName = QStringLiteral("last");
const QString forbidden = QStringLiteral("/:*?\"<>|");
} // namespace

QString quickProfilePath(const QString& folder, const QString& name)
{
    return QDir::toNativeSeparators(folder + QLatin1Char('/') + prefix + name + suffix);
}

QString lastProfilePath(const QString& folder)
{
    return quickProfilePath(folder, lastName);
}

QStringList quickProfilePaths(const QString& folder)
{
    QStringList paths;
    const QFileInfoList files =
        QDir(folder).entryInfoList({prefix + QLatin1Char('*') + suffix}, QDir::Files);
    for (const QFileInfo& file : files) {
        const QString name = nameInPath(file.filePath());
        if (!name.isEmpty() && !isReservedName(name))
            paths << QDir::toNativeSeparators(file.filePath());
    }
    // Any language will do: without one the collator does not sort by numeric value.
    QCollator order{QLocale(QLocale::English)};
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(paths.begin(), paths.end(), [&order](const QString& first, const QString& second) {
        return order(nameInPath(first), nameInPath(second));
    });
    return paths;
}

QString nameInPath(const QString& path)
{
    const QString fileName = QFileInfo(path).fileName();
    return fileName.mid(prefix.size(), fileName.size() - prefix.size() - suffix.size());
}

bool isPossibleName(const QString& name)
{
    return !name.isEmpty() && isPossibleFileName(name) && !isReservedName(name);
}

bool isReservedName(const QString& name)
{
    return name.compare(lastName, Qt::CaseInsensitive) == 0;
}

bool isPossibleFileName(const QString& fileName)
{
    return std::none_of(fileName.begin(), fileName.end(), [](QChar character) {
        return forbidden.contains(character) || character == QLatin1Char('\\') ||
               character.category() == QChar::Other_Control;
    });
}

QString forbiddenCharacters()
{
    return QStringLiteral("/ : * ? \" < > |");
}
