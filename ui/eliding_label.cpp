#include "ui/eliding_label.h"

#include "ui/instrument_text.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

QSize ElidingLabel::minimumSizeHint() const
{
    return {0, fontMetrics().height() + height() - contentsRect().height()};
}

QSize ElidingLabel::sizeHint() const
{
    const bool isIgnored = sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
    return isIgnored ? minimumSizeHint() : QLabel::sizeHint();
}

QString ElidingLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool ElidingLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QLabel::event(event);
    const QStringList lines = {text(), toolTip()};
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       neverRich(lines.join(QLatin1Char('\n')).trimmed()), this);
    return true;
}

void ElidingLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect(), int(alignment()), palette(), isEnabled(),
                          shownText(), foregroundRole());
}
