#pragma once

#include "sweep/list/point_edits.h"

#include <QObject>

#include <array>

class PointTable;
class QAction;
class QMenu;
class QPushButton;

/// The user's commands for the rows of a list: as actions of the table's context menu and keys, and
/// as buttons. Each is one step of undo. Belongs to the table.
class PointActions : public QObject
{
    Q_OBJECT

public:
    enum Command {
        Insert,
        Delete,
        Duplicate,
        MoveUp,
        MoveDown,
        FillLinear,
        FillLogarithmic,
        FillDown,
        Generate,
        Copy,
        Paste,
        SelectAll,
        Undo,
        Redo,
        Clear,
    };
    static constexpr std::size_t commandCount = 15;

    explicit PointActions(PointTable* table);

    QAction* action(Command command) const;
    /// A button that does what the action does.
    QPushButton* newButton(Command command, const QString& objectName, QWidget* parent) const;
    /// A button that opens a menu of the three ways to fill.
    QPushButton* newFillButton(const QString& objectName, QWidget* parent) const;

    /// How many rows one insertion adds: 1 at first.
    void setRowsToInsert(int count);

    /// Replaces all rows by these; without any the table stays as it is.
    void generate(const PointRows& rows);

    void retranslate();

signals:
    /// The rows are to be made from the sweep as set.
    void generateWanted();

private:
    struct Row;
    static const Row rows[commandCount];

    void build();
    void insert();
    void remove();
    void duplicate();
    void moveUp() { move(-1); }
    void moveDown() { move(1); }
    void move(int direction);
    void refusePaste(const QString& text);
    void refuseHeading(const QString& text);
    void fillLinear() { fill(Fill::Linear); }
    void fillLogarithmic() { fill(Fill::Logarithmic); }
    void fillDown() { fill(Fill::Down); }
    void fill(Fill fill);
    void copy();
    void paste();
    void selectAll();
    void undo();
    void redo();
    void clear();

    bool change(const RowsEdit& edit, Command command);
    bool changeBounded(const BoundedEdit& edit, Command command);
    void retranslateInsert();
    CellSpan chosenCells() const;

    PointTable* m_table;
    int m_rowsToInsert = 1;
    std::array<QAction*, commandCount> m_actions{};
    QMenu* m_menu;
    QMenu* m_fillMenu;
};
