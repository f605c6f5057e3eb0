#pragma once

#include "fields/field_context.h"
#include "sweep/list/point_row.h"

#include <QTableWidget>
#include <QUndoStack>

class PointDelegate;
class PowerGuard;

/// The table of a list's points. Keeps the contents of its rows, formats and bounds entries, and
/// can undo every change. Return and Tab go on from cell to cell and add a row behind the last one.
/// The user's commands for rows are in PointActions; it reads and writes no file and sends nothing.
class PointTable : public QTableWidget
{
    Q_OBJECT

public:
    enum Column { Frequency, Power, Dwell };

    explicit PointTable(const FieldContext& context, QWidget* parent = nullptr);

    const FieldContext& context() const { return m_context; }

    /// The text of a cell of the column after this text has been entered: unit letters applied,
    /// bounded where limits have been read from an instrument, and written as the column is shown.
    static QString enteredText(const QString& typed, int column, const InstrumentLimits& limits);

    bool hasEmptyCell(int column) const;
    /// Empty where there is no such cell.
    QString text(int row, int column) const;
    /// All rows as the cells show them now.
    const PointRows& points();

    /// Replaces `edit.count` rows from `edit.first` on by others, as they stand. One step of undo,
    /// called `what`; what takes more than 64 MB
    /// cannot be taken back. While the table is being transferred nothing is changed: false.
    bool change(RowsEdit edit, const QString& what);
    /// The rows to begin with, as they stand: nothing to be undone.
    void start(PointRows rows);
    /// Bounds all cells by the limits read from an instrument, in one step of undo. Returns how
    /// many had to change.
    int boundByLimits();
    void takeBack();
    void bringBack();
    const QUndoStack& history() const { return m_history; }
    /// Another number for other contents; undo brings back the number, too.
    int revision() const { return m_revision; }

    /// Whether Return and Tab may add a row: not while the instrument runs through the rows.
    void setGrowing(bool isGrowing) { m_isGrowing = isGrowing; }
    /// Removes the row that Return or Tab has added if nothing has been entered into it: it is no
    /// point of the list.
    void dropUnusedRow();

    /// Takes the current text of a cell as entered by the user. Nothing happens if the text has not
    /// changed; text that is not a number is refused.
    void acceptCell(int row, int column);

    /// The rows with a selected cell in rising order; without a selection the current row.
    std::vector<int> chosenRows() const;
    void selectRows(int first, int last);

    /// The point, counted from 1, that a run has reached; 0 for none.
    int highlightedPoint() const;
    void highlightPoint(int number);

    /// From now on typed powers are bounded by the guard's highest level, and others above it are
    /// marked.
    void setPowerGuard(PowerGuard& guard);
    /// Marks every power above the highest level. The row of the first one, counted from 0; -1 for
    /// none.
    int markAboveCeiling();

    void retranslate();

    /// Fourteen rows.
    QSize sizeHint() const override;

signals:
    /// The texts of one or many cells have changed, for whatever reason.
    void pointsChanged();

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool focusNextPrevChild(bool isNext) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    class RowsChange;

    static QStringList columnTitles();

    void apply(int first, int count, const PointRows& rows, int revision);
    void showRow(int row);
    void fillRow(int row);
    bool isAboveCeiling(const QString& power) const;
    void markPower(int row);
    void takeOverRows(int first, int count);
    void foreignRowsChanged();
    void boundHistory();
    void dropForgotten();
    bool refuseDuringTransfer();
    bool isUnused(int row) const;
    void dropUnusedRowLater();
    bool addRowBelow();
    bool goBelow();
    bool goToNeighbour(bool isNext);
    /// Empty where there is no such point; beyond the viewport for one that is not in view.
    QRect rectOfPoint(int number) const;

    const FieldContext& m_context;
    PointRows m_points;
    QUndoStack m_history;
    PointDelegate* m_delegate;
    PowerGuard* m_guard = nullptr;
    int m_revision = 0;
    int m_lastRevision = 0;
    bool m_isGrowing = true;
    /// The row that Return or Tab has added last; -1 for none.
    int m_addedRow = -1;
    /// The user works in the cells: Tab stays among them.
    bool m_isInCells = false;
    /// Where Tab began, to which Return goes back; -1 while it has not.
    int m_firstColumn = -1;
};
