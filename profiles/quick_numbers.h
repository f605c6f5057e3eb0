#pragma once

#include "ui/files/whole_file.h"

#include <QHash>
#include <QString>
#include <QStringList>

/// The numbers of quick profiles, by which keys apply them. They are kept in a file beside the
/// profiles, so that a profile keeps its number whatever is saved, renamed or deleted around it.
/// Touches no profile. Where the file cannot be read, the numbers known so far stay.
class QuickNumbers
{
public:
    /// `folder` is that of the quick profiles.
    explicit QuickNumbers(const QString& folder);

    /// The profiles in the order of their numbers. Each that has none yet is given the lowest free
    /// one, in the order in which they come.
    QStringList inOrder(const QStringList& paths);

    /// Counts from 1; 0 of a profile that inOrder() has not seen.
    int numberOf(const QString& path) const;

    /// A profile's file has another name now.
    void moved(const QString& path, const QString& newPath);

    /// Gives a profile another number, from 1 on; the one that had it gets the profile's.
    void exchange(const QString& path, int number);

private:
    FileBytes load();
    void store(const FileBytes& before) const;

    QString m_path;
    QHash<QString, int> m_numbers; ///< by file name
};
