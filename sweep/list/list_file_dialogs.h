#pragma once

#include <QObject>

class PointTable;
struct ReadList;

/// Asks for a file and saves the list to it, or opens one. Owns no list.
class ListFileDialogs : public QObject
{
    Q_OBJECT

public:
    explicit ListFileDialogs(PointTable* table);

    void save();
    /// The table keeps its rows unless the whole file is a valid list.
    void open();

signals:
    /// An error that the user must not miss.
    void errorMessage(const QString& message);

private:
    void saveTo(const QString& path);
    void openFrom(const QString& path);
    void tellError(const QString& name, const ReadList& read);

    PointTable* m_table;
};
