#pragma once

#include <QObject>

class ListDocument;
class PointTable;
struct ReadList;

/// Asks for a file and saves the list to it, or opens one. Its document remembers which.
class ListFileDialogs : public QObject
{
    Q_OBJECT

public:
    explicit ListFileDialogs(PointTable* table);

    ListDocument& document() const { return *m_document; }

    void save();
    /// The table keeps its rows unless the whole file is a valid list.
    void open();
    /// The same with a file that is known already.
    void openFile(const QString& path);

signals:
    /// An error that the user must not miss.
    void errorMessage(const QString& message);

private:
    void saveTo(const QString& path);
    void take(const QString& path, const ReadList& read);
    void tellError(const QString& name, const ReadList& read);

    PointTable* m_table;
    ListDocument* m_document;
};
