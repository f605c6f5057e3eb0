#include "ui/surface.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyleOption>

namespace
{
/// At least the radius of the corners.
constexpr int cornerSize = 10;
constexpr int border = 1;
} // namespace

void Surface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect betweenSides = rect().adjusted(cornerSize, border, -cornerSize, -border);
    const QRect betweenEnds = rect().adjusted(border, cornerSize, -border, -cornerSize);
    if (betweenSides.contains(event->rect()) || betweenEnds.contains(event->rect())) {
        painter.fillRect(event->rect(), palette().window());
        return;
    }
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}
