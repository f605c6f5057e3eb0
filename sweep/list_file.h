#pragma once

#include "sweep/point_row.h"

#include <QByteArray>

// Lists as comma-separated text: one row a line, the cells as displayed, in UTF-8, each line ended
// by a line feed. Read are also lines separated by semicolons, with decimal commas.

/// A longer file is no list that anybody has made.
constexpr int mostListLines = 1000000;

enum class ListFileError {
    None,
    NotOpened,
    NotRead,      ///< the reading broke off
    NotText,      ///< not text in UTF-8, or a line of absurd length
    NoNumber,     ///< a field that is no number
    TooManyLines, ///< more than mostListLines
};

struct ReadList {
    PointRows rows; ///< empty after an error
    ListFileError error = ListFileError::None;
    int line = 0;   ///< where the error is, counted from 1
    QString detail; ///< the field that is no number, or what the system says
};

QByteArray listText(const PointRows& points);

/// Reads all of a file before it tells of any row. Fields are taken as they stand and their values
/// not looked at; fields beyond the third are dropped, missing ones empty, blank lines skipped.
ReadList readListFile(const QString& path);

/// Writes beside the target and renames into place, so that a list that is there stays whole
/// whatever happens. The system's words for what went wrong; empty when all went well.
QString writeListFile(const QString& path, const PointRows& points);
