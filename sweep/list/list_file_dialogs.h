#pragma once

#include <QObject>

class PointTable;
struct ReadList;

/// Asks for the files that a list is saved to and opened from, and does so. Owns no list.
class ListFileDialogs : public QObject
{
    Q_OBJECT

public:
    explicit ListFileDialogs(PointTable* table);

    void save();
    /// The table keeps what it holds unless all of the file is a list.
    void open();

signals:
    /// Something went wrong that the user must not miss.
    void errorMessage(const QString& message);

private:
    void saveTo(const QString& path);
    void openFrom(const QString& path);
    void tellError(const QString& name, const ReadList& read);

    PointTable* m_table;
};
