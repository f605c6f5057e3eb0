#include "sweep/list/point_edits.h"

#include "link/instrument_limits.h"
#include "numbers/number_text.h"
#include "sweep/list/point_table.h"

#include <algorithm>
#include <cmath>

namespace
{
PointRows rowsFrom(const PointRows& points, int first, int end)
{
    return PointRows(points.begin() + first, points.begin() + end);
}

QString& cellOf(PointRows& rows, int row, int column)
{
    return rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

/// The number in a cell; none for an empty one and for text that is not a number.
std::optional<double> numberOf(const QString& text)
{
    bool isNumber = false;
    const double number = withoutBlanks(text).toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional<double>(number) : std::nullopt;
}

/// Gives a cell a text as entered, and counts it where it has to be bounded.
void enter(BoundedEdit& edit, int row, int column, const QString& text,
           const InstrumentLimits& limits)
{
    QString bounded = text;
    edit.boundedCells += limits.bound(bounded, pointQuantities[column]);
    cellOf(edit.rows, row, column) = PointTable::enteredText(text, column, limits);
}

bool fillBetweenEnds(BoundedEdit& edit, int column, Fill fill, const InstrumentLimits& limits)
{
    PointRows& rows = edit.rows;
    const int last = static_cast<int>(rows.size()) - 1;
    const std::optional<double> from = numberOf(cellOf(rows, 0, column));
    const std::optional<double> to = numberOf(cellOf(rows, last, column));
    const bool isLogarithmic = fill == Fill::Logarithmic;
    if (!from || !to || (isLogarithmic && !(*from * *to > 0.0)))
        return false;
    for (int row = 1; row < last; ++row) {
        const double part = static_cast<double>(row) / last;
        const double value =
            isLogarithmic ? *from * std::pow(*to / *from, part) : *from + (*to - *from) * part;
        QString& cell = cellOf(rows, row, column);
        cell = fieldText(value, pointKind(column));
        edit.boundedCells += limits.bound(cell, pointQuantities[column]);
    }
    return true;
}
} // namespace

RowsEdit withoutRows(const PointRows& points, const std::vector<int>& rows)
{
    RowsEdit edit{rows.front(), rows.back() - rows.front() + 1, {}};
    auto next = rows.begin();
    for (int row = rows.front(); row <= rows.back(); ++row) {
        if (row == *next)
            ++next;
        else
            edit.rows.push_back(points[static_cast<std::size_t>(row)]);
    }
    return edit;
}

RowsEdit withDuplicates(const PointRows& points, const std::vector<int>& rows)
{
    RowsEdit edit{rows.back() + 1, 0, {}};
    for (const int row : rows)
        edit.rows.push_back(points[static_cast<std::size_t>(row)]);
    return edit;
}

std::optional<RowsEdit> withRowsMoved(const PointRows& points, int first, int last, int direction)
{
    const int begin = std::min(first, first + direction);
    const int end = std::max(last, last + direction) + 1;
    if (begin < 0 || end > static_cast<int>(points.size()))
        return std::nullopt;
    RowsEdit edit{begin, end - begin, rowsFrom(points, begin, end)};
    auto& rows = edit.rows;
    std::rotate(rows.begin(), direction < 0 ? rows.begin() + 1 : rows.end() - 1, rows.end());
    return edit;
}

std::optional<BoundedEdit> withFilled(const PointRows& points, const CellSpan& span, Fill fill,
                                      const InstrumentLimits& limits)
{
    const int count = span.lastRow - span.firstRow + 1;
    BoundedEdit edit{{span.firstRow, count, rowsFrom(points, span.firstRow, span.lastRow + 1)}};
    for (int column = span.firstColumn; column <= span.lastColumn; ++column) {
        if (fill != Fill::Down) {
            if (!fillBetweenEnds(edit, column, fill, limits))
                return std::nullopt;
            continue;
        }
        for (int row = 1; row < count; ++row) {
            QString& cell = cellOf(edit.rows, row, column);
            cell = cellOf(edit.rows, 0, column);
            edit.boundedCells += limits.bound(cell, pointQuantities[column]);
        }
    }
    return edit;
}

BoundedEdit withEntered(const PointRows& points, int row, int column,
                        const std::vector<std::vector<QString>>& texts,
                        const InstrumentLimits& limits)
{
    const int rowCount = static_cast<int>(points.size());
    const int end = std::min(row + static_cast<int>(texts.size()), rowCount);
    BoundedEdit edit{{row, end - row, rowsFrom(points, row, end)}};
    edit.rows.resize(texts.size());
    for (int line = 0; line < static_cast<int>(texts.size()); ++line) {
        int target = column;
        for (const QString& text : texts[static_cast<std::size_t>(line)]) {
            if (target == pointColumnCount)
                break;
            enter(edit, line, target++, text, limits);
        }
    }
    return edit;
}

BoundedEdit withEntered(const PointRows& points, const CellSpan& span, const QString& text,
                        const InstrumentLimits& limits)
{
    const int count = span.lastRow - span.firstRow + 1;
    BoundedEdit edit{{span.firstRow, count, rowsFrom(points, span.firstRow, span.lastRow + 1)}};
    for (int row = 0; row < count; ++row) {
        for (int column = span.firstColumn; column <= span.lastColumn; ++column)
            enter(edit, row, column, text, limits);
    }
    return edit;
}
