#include "sweep/cell_clipboard.h"

#include "numbers/number_text.h"
#include "numbers/unit_keys.h"
#include "sweep/point_edits.h"

#include <QStringList>

#include <cmath>

namespace
{
const QLatin1Char comma(',');
const QLatin1Char point('.');

/// The last separator stands before the fraction, unless it stands there more than once.
QString withOnePoint(QString number)
{
    const int lastComma = number.lastIndexOf(comma);
    const int lastPoint = number.lastIndexOf(point);
    const QChar fraction = lastComma > lastPoint ? comma : point;
    number.remove(fraction == comma ? point : comma);
    if (number.count(fraction) > 1)
        number.remove(fraction);
    return number.replace(fraction, point);
}

/// A plain decimal number; empty where the text is no number.
QString plainNumber(const QString& cell)
{
    QString number = withOnePoint(withoutBlanks(cell));
    if (isPlainDecimal(number))
        return number;
    bool isNumber = false;
    const double value = number.toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? shortestText(value) : QString();
}
} // namespace

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

PastedCells pastedCells(const QString& text)
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
        for (const QString& cell : line.split(QLatin1Char('\t'))) {
            cells.push_back(plainNumber(cell));
            if (cells.back().isEmpty() && !withoutBlanks(cell).isEmpty()) {
                pasted.strange = cell;
                return pasted;
            }
        }
        pasted.texts.push_back(std::move(cells));
    }
    return pasted;
}
