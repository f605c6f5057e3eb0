#include "sweep/point_table.h"

#include <QHeaderView>

PointTable::PointTable(QWidget* parent) : QTableWidget(0, pointColumnCount, parent)
{
    setObjectName(QStringLiteral("table_List"));
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(this, &QTableWidget::cellChanged, this, &PointTable::pointsChanged);
    retranslate();
}

FieldKind PointTable::kind(int column)
{
    constexpr FieldKind kinds[] = {FieldKind::Frequency, FieldKind::Power, FieldKind::Dwell};
    return kinds[column];
}

QString PointTable::text(int row, int column) const
{
    const QTableWidgetItem* cell = item(row, column);
    return cell == nullptr ? QString() : cell->text();
}

void PointTable::highlightPoint(int number)
{
    m_highlightedPoint = number;
    viewport()->update();
}

void PointTable::retranslate()
{
    setHorizontalHeaderLabels({tr("Freq [Hz]"), tr("Pow [dBm]"), tr("Dwell [μs]")});
    setAccessibleName(tr("List of points"));
}
