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

namespace
{
/// Cells beyond the last column are dropped.
FieldKind kindOf(int column)
{
    return pointKind(std::min(column, pointColumnCount - 1));
}

/// Whether there are words in a line, and no number.
bool isHeadingLine(const QStringList& cells, int firstColumn)
{
    bool hasWords = false;
    for (int i = 0; i < cells.size(); ++i) {
        if (readQuantity(cells.at(i), kindOf(firstColumn + i)))
            return false;
        hasWords = hasWords || !withoutBlanks(cells.at(i)).isEmpty();
    }
    return hasWords;
}

/// The powers of ten in a heading's units; the strange heading otherwise.
PastedCells readHeading(const QStringList& cells, int firstColumn, std::vector<int>& powers)
{
    PastedCells pasted;
    for (int i = 0; i < cells.size() && firstColumn + i < pointColumnCount; ++i) {
        const HeadingUnit unit = headingUnit(cells.at(i), kindOf(firstColumn + i));
        powers.push_back(unit.powerOfTen);
        if (unit.isForeign && !pasted.isHeading) {
            pasted.strange = cells.at(i);
            pasted.isHeading = true;
        }
    }
    return pasted;
}
} // namespace

PastedCells pastedCells(const QString& text, int firstColumn)
{
    QString lines = text;
    lines.remove(QLatin1Char('\r'));
    if (lines.endsWith(QLatin1Char('\n')))
        lines.chop(1);
    if (lines.isEmpty())
        return {};
    QStringList split = lines.split(QLatin1Char('\n'));
    PastedCells pasted;
    std::vector<int> powers;
    const QStringList first = split.first().split(QLatin1Char('\t'));
    if (split.size() > 1 && isHeadingLine(first, firstColumn)) {
        pasted = readHeading(first, firstColumn, powers);
        split.removeFirst();
        if (pasted.isHeading)
            return pasted;
    }
    for (const QString& line : qAsConst(split)) {
        std::vector<QString> cells;
        for (const QString& cell : line.split(QLatin1Char('\t'))) {
            const FieldKind kind = kindOf(firstColumn + static_cast<int>(cells.size()));
            const int power = cells.size() < powers.size() ? powers[cells.size()] : 0;
            const std::optional<QString> number = readQuantity(cell, kind, power);
            if (!number && !withoutBlanks(cell).isEmpty()) {
                pasted.strange = cell;
                return pasted;
            }
            cells.push_back(number ? shiftedDecimal(*number, power) : QString());
        }
        pasted.texts.push_back(std::move(cells));
    }
    return pasted;
}
