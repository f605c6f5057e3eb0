#include "ui/indicator.h"

#include <QPainter>
#include <QStyle>

void Indicator::paintEvent(QPaintEvent* event)
{
    QPixmap icon = pixmap(Qt::ReturnByValue);
    if (icon.isNull()) {
        QLabel::paintEvent(event);
        return;
    }
    {
        QPainter tint(&icon);
        tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
        tint.fillRect(icon.rect(), palette().color(foregroundRole()));
    }
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemPixmap(&painter, contentsRect(), Qt::AlignCenter, icon);
}
