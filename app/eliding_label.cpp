#include "app/eliding_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

QString ElidingLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool ElidingLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QLabel::event(event);
    QString tip = (text() + QLatin1Char('\n') + toolTip()).trimmed();
    // Plain, as the line itself: what an instrument says may look like rich text.
    if (Qt::mightBeRichText(tip))
        tip = Qt::convertFromPlainText(tip);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, this);
    return true;
}

void ElidingLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect(), int(alignment()), palette(), isEnabled(),
                          shownText(), foregroundRole());
}
