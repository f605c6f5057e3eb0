#pragma once

#include "ui/files/whole_file.h"

#include <vector>

class QDateTime;

// Calibration tables kept as files: comma-separated text, one point a line, frequency in hertz and
// value, each line ended by a line feed.

/// A point by the texts of its cells, in whatever form they are.
struct CalibrationPoint {
    QString frequencyHz;
    QString value;
};
inline bool operator==(const CalibrationPoint& one, const CalibrationPoint& other)
{
    return one.frequencyHz == other.frequencyHz && one.value == other.value;
}
using CalibrationPoints = std::vector<CalibrationPoint>;

/// "calibration SERIAL", with which the names of an instrument's backups begin.
QString backupPrefix(const QString& serial);

/// The path of a new file in the folder: "calibration SERIAL 2026-11-21 14-03-22.csv".
QString newBackupPath(const QString& folder, const QString& serial, const QDateTime& time);

QByteArray backupText(const CalibrationPoints& points);

struct ReadBackup : FileOutcome {
    CalibrationPoints points; ///< none after a fault
    int strangeLine = 0;      ///< the first one, from 1, that is no point; 0: all are
};

/// A file without a point is not a calibration table. Whether the texts are numbers that can be
/// sent is not checked: cells may be empty.
ReadBackup readBackup(const QString& path, FileProgress* progress = nullptr);
