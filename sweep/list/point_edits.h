#pragma once

#include "sweep/list/point_row.h"

#include <optional>

class InstrumentLimits;

// Changes of a list as values, for a table to apply. Rows and columns
// count from 0; rows given as numbers are in rising order and not empty.

/// Cells in a rectangle, both ends included.
struct CellSpan {
    int firstRow = 0;
    int lastRow = -1;
    int firstColumn = 0;
    int lastColumn = -1;
};

enum class Fill {
    Linear,      ///< equal differences between the ends
    Logarithmic, ///< equal ratios between the ends
    Down,        ///< the first row's value in all others
};

RowsEdit withoutRows(const PointRows& points, const std::vector<int>& rows);

/// Copies of the rows below the last of them.
RowsEdit withDuplicates(const PointRows& points, const std::vector<int>& rows);

/// The rows from `first` to `last`, by one up (-1) or down (1); none where there is no room.
std::optional<RowsEdit> withRowsMoved(const PointRows& points, int first, int last, int direction);

/// A change, and how many of its cells had to be bounded by the limits.
struct BoundedEdit : RowsEdit {
    int boundedCells = 0;
};

/// Each column of a span filled from its first row on, the ends as they are, the others bounded.
/// None where the ends are no numbers, or for equal ratios not both above or both below 0.
std::optional<BoundedEdit> withFilled(const PointRows& points, const CellSpan& span, Fill fill,
                                      const InstrumentLimits& limits);

/// Texts entered into the cells from a row and column on: what stands beyond the last column is
/// dropped, missing rows are added.
BoundedEdit withEntered(const PointRows& points, int row, int column,
                        const std::vector<std::vector<QString>>& texts,
                        const InstrumentLimits& limits);

/// One text entered into all cells of a span.
BoundedEdit withEntered(const PointRows& points, const CellSpan& span, const QString& text,
                        const InstrumentLimits& limits);
