#pragma once

#include "sweep/picture/run_points.h"

#include <QPolygonF>
#include <QVector>

/// A quantity as steps over the time in µs, between two times of a pass, for a picture of that many
/// columns: pieces with gaps where nothing can be read. However many points there are, a column
/// costs a few corners, and none of its extremes is lost.
QVector<QPolygonF> runLines(const RunPoints& points, RunQuantity quantity, double fromUs,
                            double toUs, int columns);
