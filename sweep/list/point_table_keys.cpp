// How the user goes from cell to cell of the table.
#include "sweep/list/point_table.h"

#include "numbers/number_text.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr int hintMargin = 16;

bool opensEditor(const QKeyEvent& key)
{
    const QString text = key.text();
    const bool isPlain = (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    return isPlain && !text.isEmpty() && text.at(0).isPrint() && !text.at(0).isSpace();
}

bool isMove(const QKeyEvent& key)
{
    return key.key() >= Qt::Key_Home && key.key() <= Qt::Key_PageDown;
}
} // namespace

bool PointTable::isUnused(int row) const
{
    int column = 0;
    while (column < pointColumnCount && withoutBlanks(text(row, column)).isEmpty())
        ++column;
    return column == pointColumnCount;
}

/// Unless the user is in that row by then: the focus and the current cell change one after the
/// other.
void PointTable::dropUnusedRowLater()
{
    if (m_addedRow < 0)
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            const QWidget* focus = QApplication::focusWidget();
            const bool isElsewhere = focus && focus != this && !isAncestorOf(focus);
            if (isElsewhere || currentRow() != m_addedRow)
                dropUnusedRow();
        },
        Qt::QueuedConnection);
}

/// False where no row can be added, or the last one has yet to be used.
bool PointTable::addRowBelow()
{
    const int row = rowCount();
    if (!m_isGrowing || (row > 0 && isUnused(row - 1)) ||
        !change({row, 0, PointRows(1)}, tr("Add row")))
        return false;
    m_addedRow = row;
    return true;
}

bool PointTable::goBelow()
{
    if (currentRow() + 1 == rowCount() && !addRowBelow())
        return false;
    const int column = std::max(m_firstColumn >= 0 ? m_firstColumn : currentColumn(), 0);
    m_firstColumn = -1;
    setCurrentCell(currentRow() + 1, column);
    return true;
}

/// To the next cell in the order of reading, or the previous one. False where there is none.
bool PointTable::goToNeighbour(bool isNext)
{
    if (currentRow() < 0)
        return false;
    const int cell = currentRow() * pointColumnCount + currentColumn() + (isNext ? 1 : -1);
    if (cell < 0 || (cell == rowCount() * pointColumnCount && !addRowBelow()))
        return false;
    if (m_firstColumn < 0)
        m_firstColumn = currentColumn();
    setCurrentCell(cell / pointColumnCount, cell % pointColumnCount);
    return true;
}

/// Return moves to the cell below, or to where Tab began, as in a spreadsheet; Tab edits the next
/// one.
void PointTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool isTab = hint == QAbstractItemDelegate::EditNextItem ||
                       hint == QAbstractItemDelegate::EditPreviousItem;
    QTableWidget::closeEditor(editor, isTab ? QAbstractItemDelegate::NoHint : hint);
    if (hint == QAbstractItemDelegate::SubmitModelCache)
        goBelow();
    else if (isTab && goToNeighbour(hint == QAbstractItemDelegate::EditNextItem))
        edit(currentIndex());
    dropUnusedRowLater();
}

bool PointTable::focusNextPrevChild(bool isNext)
{
    return (m_isInCells && goToNeighbour(isNext)) || QTableWidget::focusNextPrevChild(isNext);
}

/// Tab that has led here leads on, until the user does something in the cells.
void PointTable::focusInEvent(QFocusEvent* event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        m_isInCells = false;
    QTableWidget::focusInEvent(event);
}

void PointTable::focusOutEvent(QFocusEvent* event)
{
    QTableWidget::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        dropUnusedRowLater();
}

void PointTable::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableWidget::currentChanged(current, previous);
    dropUnusedRowLater();
}

void PointTable::mousePressEvent(QMouseEvent* event)
{
    m_isInCells = true;
    m_firstColumn = -1;
    QTableWidget::mousePressEvent(event);
}

void PointTable::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (isTab && event->modifiers().testFlag(Qt::ControlModifier)) {
        m_isInCells = false;
        QTableWidget::focusNextPrevChild(event->key() == Qt::Key_Tab);
        return;
    }
    m_isInCells = m_isInCells || isReturn || opensEditor(*event);
    if (isMove(*event))
        m_firstColumn = -1;
    if (rowCount() == 0 && opensEditor(*event) && addRowBelow())
        setCurrentCell(0, Frequency);
    if (isReturn && state() != EditingState && goBelow())
        return;
    QTableWidget::keyPressEvent(event);
}

void PointTable::paintEvent(QPaintEvent* event)
{
    QTableWidget::paintEvent(event);
    if (rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(hintMargin, 0, -hintMargin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     tr("No points yet. Three ways to fill the list:\n"
                        "1. Type: a number, then Tab and Enter\n"
                        "2. Paste from a spreadsheet (Ctrl+V), or open a file\n"
                        "3. Make it from the sweep (Ctrl+G)"));
}
