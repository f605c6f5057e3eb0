#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// Where a window of that size stands beside a field: below it, above it, right or left of it, the
/// first that fits the screen. Where none fits, the field is covered; the window's top left corner
/// never leaves the screen, nor does the rest of a window that is not larger than it.
QPoint placeBeside(const QRect& field, const QSize& window, const QRect& screen);
