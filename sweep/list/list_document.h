#pragma once

#include <QObject>
#include <QStringList>

class PointTable;
class QSettings;

/// Which file the points of a table are from, whether they have changed since, and which files and
/// folder were used last. With settings it brings these and the points back at the next start.
/// Asks the user nothing.
class ListDocument : public QObject
{
    Q_OBJECT

public:
    explicit ListDocument(PointTable* table);

    /// Brings back what the last end of the program has kept, and lets keep() do so again.
    void restore(QSettings& settings);
    /// Keeps the points in a file of their own, saved or not. Once, and only after restore().
    void keep();

    /// The contents of that revision of the table are those of the file.
    void setFile(const QString& path, int revision);
    /// The file is no longer there.
    void forgetRecent(const QString& path);

    bool isChanged() const;
    /// With an asterisk while it has changes that are not saved; empty for no points of no file.
    QString title() const;
    QString file() const { return m_file; }
    /// The last one used first.
    const QStringList& recentFiles() const { return m_recent; }
    /// Where the last file was, or else the user's folder, which is then made.
    QString folder() const;

signals:
    /// Another title or other recent files.
    void changed();

private:
    void setRecent(const QStringList& paths);

    PointTable* m_table;
    QSettings* m_settings = nullptr;
    QString m_file;
    int m_savedRevision = 0;
    QString m_folder;
    QStringList m_recent;
    /// What was kept before cannot be read, and must not be lost for an empty table.
    bool m_isKeptUnread = false;
};
