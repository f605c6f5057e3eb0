#include "sweep/list/list_document.h"

#include "link/notices.h"
#include "sweep/list/list_file.h"
#include "sweep/list/point_table.h"
#include "ui/files/user_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <utility>

namespace
{
constexpr int mostRecent = 8;
const QString fileKey = QStringLiteral("List/file");
const QString changedKey = QStringLiteral("List/changed");
const QString folderKey = QStringLiteral("List/folder");
const QString recentKey = QStringLiteral("List/recent");

/// Beside the profile of the last state.
QString keptPath()
{
    return QDir(userFolder()).filePath(QStringLiteral("List_last.csv"));
}
} // namespace

ListDocument::ListDocument(PointTable* table) : QObject(table), m_table(table)
{
    connect(table, &PointTable::pointsChanged, this, &ListDocument::changed);
}

void ListDocument::restore(QSettings& settings)
{
    m_settings = &settings;
    m_folder = settings.value(folderKey).toString();
    m_recent = settings.value(recentKey).toStringList();
    ReadList kept = readListFile(keptPath());
    const bool isMissing = kept.file.fault == FileFault::Missing;
    m_isKeptUnread = kept.error != ListFileError::None && !isMissing;
    if (m_isKeptUnread)
        m_table->context().notices.say(
            [] { return tr("The list of the last time cannot be read"); });
    if (!kept.rows.empty()) {
        m_table->start(std::move(kept.rows));
        m_file = settings.value(fileKey).toString();
        const bool wasChanged = m_file.isEmpty() || settings.value(changedKey, true).toBool();
        m_savedRevision = wasChanged ? -1 : m_table->revision();
    }
    emit changed();
}

void ListDocument::keep()
{
    QSettings* settings = std::exchange(m_settings, nullptr);
    if (!settings)
        return;
    m_table->dropUnusedRow();
    const PointRows& rows = m_table->points();
    settings->setValue(fileKey, m_file);
    settings->setValue(changedKey, isChanged());
    if (rows.empty()) {
        if (!m_isKeptUnread)
            QFile::remove(keptPath());
        return;
    }
    madeUserFolder();
    const FileOutcome written = writeWholeFile(keptPath(), listText(rows));
    if (written.fault != FileFault::None)
        qWarning("The list could not be kept: %s", qUtf8Printable(written.detail()));
}

void ListDocument::setFile(const QString& path, int revision)
{
    m_file = QFileInfo(path).absoluteFilePath();
    m_savedRevision = revision;
    m_folder = QFileInfo(path).absolutePath();
    if (m_settings)
        m_settings->setValue(folderKey, m_folder);
    QStringList recent = m_recent;
    recent.removeAll(m_file);
    recent.prepend(m_file);
    setRecent(recent.mid(0, mostRecent));
}

void ListDocument::forgetRecent(const QString& path)
{
    QStringList recent = m_recent;
    recent.removeAll(path);
    setRecent(recent);
}

void ListDocument::setRecent(const QStringList& paths)
{
    m_recent = paths;
    if (m_settings)
        m_settings->setValue(recentKey, m_recent);
    emit changed();
}

bool ListDocument::isChanged() const
{
    return m_table->revision() != m_savedRevision;
}

QString ListDocument::title() const
{
    if (m_file.isEmpty() && m_table->rowCount() == 0)
        return QString();
    const QString name = m_file.isEmpty() ? tr("new list") : QFileInfo(m_file).fileName();
    return isChanged() ? name + QLatin1Char('*') : name;
}

QString ListDocument::folder() const
{
    return !m_folder.isEmpty() && QDir(m_folder).exists() ? m_folder : madeUserFolder();
}
