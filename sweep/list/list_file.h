#pragma once

#include "sweep/list/point_row.h"
#include "ui/files/whole_file.h"

#include <QByteArray>

// Lists as comma-separated text: one row a line, the cells as displayed, in UTF-8, each line ended
// by a line feed. Fields separated by semicolons, with decimal commas, are read as well.

/// No real list makes a longer file.
constexpr int mostListLines = 1000000;

/// In characters; a number takes a third of that.
constexpr int longestCell = 64;

enum class ListFileError {
    None,
    NotOpened,
    NotRead,      ///< reading failed
    NotText,      ///< not valid UTF-8 text, or a line far too long
    NoNumber,     ///< a field that is not a number
    ForeignUnit,  ///< a heading names a unit that does not fit its column
    LongCell,     ///< a field of more than longestCell characters
    TooManyLines, ///< more than mostListLines
    Cancelled,    ///< by the caller, through the progress
};

struct ReadList {
    PointRows rows;          ///< empty after an error
    bool hasHeading = false; ///< the first line held no number and was skipped
    bool isScaled = false;   ///< by units in the heading
    ListFileError error = ListFileError::None;
    FileOutcome file{}; ///< of NotOpened and NotRead
    int line = 0;       ///< where the error is, counted from 1
    QString field;      ///< the one that is not a number, or the heading
};

QByteArray listText(const PointRows& points);

/// Reads all of a file before it returns any row. Fields are taken as they stand except that blanks
/// of any kind and tabs become plain blanks, and their values are not checked; fields beyond the
/// third are dropped, missing ones empty, blank lines skipped. A first line of text in which no
/// field is a number is a heading, where points follow. A column whose heading names another unit
/// than the table's, such as "Freq [MHz]", is converted.
ReadList readListFile(const QString& path, FileProgress* progress = nullptr);
