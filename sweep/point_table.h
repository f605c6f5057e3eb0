#pragma once

#include "numbers/field_kind.h"
#include "sweep/point_row.h"

#include <QTableWidget>

/// The table of a list's points. Formats and bounds what is entered; sends nothing.
class PointTable : public QTableWidget
{
    Q_OBJECT

public:
    enum Column { Frequency, Power, Dwell };

    explicit PointTable(QWidget* parent = nullptr);

    static FieldKind kind(int column);

    /// Empty where there is no such cell.
    QString text(int row, int column) const;

    /// The point, counted from 1, that a run has reached; 0 for none.
    int highlightedPoint() const { return m_highlightedPoint; }
    void highlightPoint(int number);

    void retranslate();

signals:
    /// The texts of one or many cells have changed, by whatever hand.
    void pointsChanged();

private:
    int m_highlightedPoint = 0;
};
