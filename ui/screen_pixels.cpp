#include "ui/screen_pixels.h"

#include <QScreen>
#include <QWidget>

// No scale moves the screen's corner.

QPointF toScreenPixels(const QWidget& widget, const QPoint& place)
{
    const QScreen& screen = *widget.screen();
    const QPoint corner = screen.geometry().topLeft();
    return corner + QPointF(place - corner) * screen.devicePixelRatio();
}

QPoint fromScreenPixels(const QWidget& widget, const QPointF& pixels)
{
    const QScreen& screen = *widget.screen();
    const QPoint corner = screen.geometry().topLeft();
    return corner + ((pixels - corner) / screen.devicePixelRatio()).toPoint();
}
