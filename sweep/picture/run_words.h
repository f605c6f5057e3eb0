#pragma once

#include "sweep/picture/run_points.h"

// A run and its time in words of the user's language.

enum class RunKind { Sweep, List };

/// "Sweep of 100 points: 25 MHz to 1 GHz, −10 dBm, 100 ms per pass"; of no points: why.
QString runWords(RunKind kind, const RunPoints& points);

/// The number of points and the time of a pass.
QString runSummary(const RunPoints& points);

/// A point with its exact values, in lines of their own.
QString pointWords(const RunPoints& points, int number);

/// "0.2 s of 1.2 s": both in the unit of the whole, from a minute on as h:mm:ss.
QString progressWords(double elapsedMs, double totalMs);
