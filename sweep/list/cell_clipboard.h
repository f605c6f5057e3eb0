#pragma once

#include "sweep/list/point_row.h"

#include <optional>

struct CellSpan;

// Cells as tab-separated text, as spreadsheets exchange them.

/// The cells of a span: plain numbers without blanks between their digits, which a spreadsheet
/// would take for text.
QString copiedText(const PointRows& points, const CellSpan& span);

/// The contents of a pasted text.
struct PastedCells {
    std::vector<std::vector<QString>> texts; ///< lines of plain decimal numbers or empty texts
    QString strange;        ///< the first cell that is not a number; none otherwise
    bool isHeading = false; ///< the strange cell is a heading that does not fit its column
};

/// Reads cells as spreadsheets write them, see readQuantity(), with the units of their columns. A
/// first line in which no cell is a number is a heading, and the units in it are those of plain
/// numbers below.
PastedCells pastedCells(const QString& text, int firstColumn);
