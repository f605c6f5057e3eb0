#include "sweep/list/cell_clipboard.h"

#include "numbers/number_text.h"
#include "numbers/quantity_text.h"
#include "sweep/list/point_edits.h"
#include "sweep/list/point_table.h"

#include <QStringList>

#include <algorithm>

QString copiedText(const PointRows& points, const CellSpan& span)
{
    QString text;
    for (int row = span.firstRow; row <= span.lastRow; ++row) {
        for (int column = span.firstColumn; column <= span.lastColumn; ++column) {
            if (column > span.firstColumn)
                text += QLatin1Char('\t');
            text += withoutBlanks(
                points[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
        }
        text += QLatin1Char('\n');
    }
    return text;
}

PastedCells pastedCells(const QString& text, int firstColumn)
{
    QString lines = text;
    lines.remove(QLatin1Char('\r'));
    if (lines.endsWith(QLatin1Char('\n')))
        lines.chop(1);
    PastedCells pasted;
    if (lines.isEmpty())
        return pasted;
    for (const QString& line : lines.split(QLatin1Char('\n'))) {
        std::vector<QString> cells;
        int column = firstColumn;
        for (const QString& cell : line.split(QLatin1Char('\t'))) {
            // Cells beyond the last column are dropped.
            const FieldKind kind = pointKind(std::min(column++, pointColumnCount - 1));
            const std::optional<QString> number = readQuantity(cell, kind);
            if (!number && !withoutBlanks(cell).isEmpty()) {
                pasted.strange = cell;
                return pasted;
            }
            cells.push_back(number.value_or(QString()));
        }
        pasted.texts.push_back(std::move(cells));
    }
    return pasted;
}
