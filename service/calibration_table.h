#pragma once

#include "link/activity.h"
#include "service/calibration_backup.h"

#include <QTableWidget>

/// The instrument's calibration points, one to a row, as they were read or typed. A cell that holds
/// no number keeps what was typed and is marked; so is a row that differs from what was read. Sends
/// nothing.
class CalibrationTable : public QTableWidget
{
    Q_OBJECT

public:
    enum Column { Frequency, Value, ColumnCount };

    explicit CalibrationTable(QWidget* parent = nullptr);

    /// Shows `pointCount` rows filled with `numbers`, row by row. Numbers beyond the last row are
    /// ignored; where there are too few the cells stay empty. This is what was read.
    void showPoints(int pointCount, const QStringList& numbers);

    /// Shows other points than were read, each cell as if typed.
    void showOtherPoints(const CalibrationPoints& points);

    const CalibrationPoints& pointsAsRead() const { return m_asRead; }
    /// Rows that differ from what was read, and those that are no more.
    int changedRows() const;

    /// Converts the text typed into a cell to the form in which it is sent, or marks the cell.
    /// Returns what is wrong with it, for a notice; none when nothing is.
    StatusWords acceptCell(int row, int column);

    /// What is wrong with the first cell that cannot be sent; that cell becomes the current one.
    /// None when all can.
    StatusWords firstComplaint();

    /// As they are sent: whole numbers, or empty where a cell holds none.
    CalibrationPoints points() const;

    void retranslate();

private:
    QString cellText(int row, int column) const;
    StatusWords complaint(int row, int column) const;
    void fill(const CalibrationPoints& points);
    bool isAsRead(int row) const;
    void markRow(int row);

    CalibrationPoints m_asRead;
};
