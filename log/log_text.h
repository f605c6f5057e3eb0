#pragma once

#include "link/exchange_log.h"

#include <QStringList>

#include <vector>

// The log's lines as text, in the language of the program.

/// "Time", "Sent", "Answered", "ms", "Status".
QStringList columnTitles();

/// In one line: control characters as escapes, the line end at its end left out.
QString inOneLine(const QString& text);

/// "14:03:07.250", local time.
QString timeText(const Exchange& exchange);

/// What was sent, or what happened: "Connected: KLV-20G (5678)".
QString sentText(const Exchange& exchange);

/// In milliseconds; empty for an event.
QString durationText(const Exchange& exchange);

/// What the error queue said, or the VISA status where it is a failure; empty for an event.
QString statusText(const Exchange& exchange);

/// What came of a command, cut to some 250 characters: "FREQ?: 2450000000 (ok)".
QString outcomeText(const Exchange& exchange);

/// Time, sent, answered, duration and status, with a tab between.
QString logLine(const Exchange& exchange);

/// The lines, each with its line end, in UTF-8.
QByteArray logLines(const std::vector<Exchange>& exchanges);

/// The same as comma-separated values, with a heading.
QByteArray logValues(const std::vector<Exchange>& exchanges);
