#pragma once

#include "sweep/list/point_row.h"
#include "ui/files/whole_file.h"

#include <QByteArray>

// Lists as comma-separated text: one row a line, the cells as displayed, in UTF-8, each line ended
// by a line feed. Read are also lines separated by semicolons, with decimal commas.

/// A longer file is no list that anybody has made.
constexpr int mostListLines = 1000000;

/// In characters; a number takes a third of it.
constexpr int longestCell = 64;

enum class ListFileError {
    None,
    NotOpened,
    NotRead,      ///< the reading broke off
    NotText,      ///< not text in UTF-8, or a line of absurd length
    NoNumber,     ///< a field that is no number
    LongCell,     ///< a field of more than longestCell characters
    TooManyLines, ///< more than mostListLines
    Cancelled,    ///< by whoever watches the progress
};

struct ReadList {
    PointRows rows;          ///< empty after an error
    bool hasHeading = false; ///< the first line held no number and was passed over
    ListFileError error = ListFileError::None;
    int line = 0;   ///< where the error is, counted from 1
    QString detail; ///< the field that is no number, or what the system says
};

QByteArray listText(const PointRows& points);

/// Reads all of a file before it tells of any row. Fields are taken as they stand but for
/// blanks of any kind and tabs, which become plain blanks, and their values not looked at; fields
/// beyond the third are dropped, missing ones empty, blank lines skipped. A first line of text in
/// which no field is a number is a heading, where points follow.
ReadList readListFile(const QString& path, FileProgress* progress = nullptr);
