#include "sweep/picture/run_lines.h"

#include <cmath>

namespace
{
// With fewer points per column than this, every point is drawn.
constexpr int pointsPerColumn = 2;

/// Joins corners into pieces.
class Pieces
{
public:
    void add(double timeUs, double value)
    {
        const QPointF corner(timeUs, value);
        if (m_piece.isEmpty() || m_piece.last() != corner)
            m_piece << corner;
    }
    void interrupt()
    {
        if (!m_piece.isEmpty())
            m_pieces << m_piece;
        m_piece.clear();
    }
    QVector<QPolygonF> take()
    {
        interrupt();
        return m_pieces;
    }

private:
    QPolygonF m_piece;
    QVector<QPolygonF> m_pieces;
};
} // namespace

QVector<QPolygonF> runLines(const RunPoints& points, RunQuantity quantity, double fromUs,
                            double toUs, int columns)
{
    const PointRange visible = points.pointsBetween(fromUs, toUs);
    Pieces pieces;
    if (visible.last - visible.first < pointsPerColumn * columns) {
        for (int number = visible.first; number <= visible.last; ++number) {
            const ValueCourse value = points.course(quantity, {number, number});
            if (value.isEmpty()) {
                pieces.interrupt();
                continue;
            }
            pieces.add(points.startUs(number), value.first);
            pieces.add(points.startUs(number + 1), value.first);
        }
        return pieces.take();
    }
    const double columnUs = (toUs - fromUs) / columns;
    for (int column = 0; column < columns; ++column) {
        const double startUs = fromUs + column * columnUs;
        const ValueCourse values =
            points.course(quantity, points.pointsBetween(startUs, startUs + columnUs));
        if (values.isEmpty()) {
            pieces.interrupt();
            continue;
        }
        const double middleUs = startUs + columnUs / 2.0;
        const bool isRising = values.first <= values.last;
        for (const double value : {values.first, isRising ? values.low : values.high,
                                   isRising ? values.high : values.low, values.last})
            pieces.add(middleUs, value);
    }
    return pieces.take();
}
