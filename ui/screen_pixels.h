#pragma once

#include <QPoint>

class QWidget;

/// A place on the widget's screen in pixels of that screen, which no zoom changes; and back,
/// rounded.
QPointF toScreenPixels(const QWidget& widget, const QPoint& place);
QPoint fromScreenPixels(const QWidget& widget, const QPointF& pixels);
