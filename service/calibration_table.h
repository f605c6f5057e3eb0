#pragma once

#include <QTableWidget>

#include <vector>

/// A point as it is sent: both whole numbers, as text.
struct CalibrationPoint {
    QString frequencyHz;
    QString value;
};

/// The instrument's calibration points, one to a row, as they were read or typed. A cell that holds
/// no number keeps what was typed and is marked. Sends nothing.
class CalibrationTable : public QTableWidget
{
    Q_OBJECT

public:
    enum Column { Frequency, Value, ColumnCount };

    explicit CalibrationTable(QWidget* parent = nullptr);

    /// Shows `pointCount` rows filled with `numbers`, row by row. Numbers beyond the last row are
    /// ignored; where there are too few the cells stay empty.
    void showPoints(int pointCount, const QStringList& numbers);

    /// Brings what was typed into a cell into the form in which it is sent, or marks the cell.
    /// Returns what is wrong with it, to be told; empty when nothing is.
    QString acceptCell(int row, int column);

    /// What is wrong with the first cell that cannot be sent; that cell becomes the current one.
    /// Empty when all can.
    QString firstComplaint();

    std::vector<CalibrationPoint> points() const;

    void retranslate();

private:
    QString cellText(int row, int column) const;
    QString complaint(int row, int column) const;
};
