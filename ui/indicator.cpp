#include "ui/indicator.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace
{
constexpr int gap = 6;

QSize sizeOf(const QPixmap& icon)
{
    return icon.size() / icon.devicePixelRatio();
}
} // namespace

void Indicator::setWords(const QString& words)
{
    if (words == m_words)
        return;
    m_words = words;
    setAccessibleDescription(words);
    updateGeometry();
    update();
}

QString Indicator::words() const
{
    return pixmap(Qt::ReturnByValue).isNull() ? QString() : m_words;
}

bool Indicator::isDark() const
{
    return text().isEmpty() && pixmap(Qt::ReturnByValue).isNull();
}

/// A dark lamp leaves its room to the words of the others.
QSize Indicator::sizeHint() const
{
    const QSize hint = QLabel::sizeHint();
    if (isDark())
        return {0, hint.height()};
    const QString said = words();
    // The advance is rounded, and what is a part of a pixel too long would be cut.
    return said.isEmpty() ? hint : hint + QSize(gap + fontMetrics().horizontalAdvance(said) + 1, 0);
}

/// The words may be cut, the icon not.
QSize Indicator::minimumSizeHint() const
{
    if (isDark())
        return {0, QLabel::minimumSizeHint().height()};
    return words().isEmpty() ? QLabel::minimumSizeHint() : QLabel::sizeHint();
}

bool Indicator::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || words().isEmpty())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       toolTip() + QLatin1Char('\n') + words(), this);
    return true;
}

void Indicator::paintEvent(QPaintEvent* event)
{
    QPixmap icon = pixmap(Qt::ReturnByValue);
    if (icon.isNull()) {
        QLabel::paintEvent(event);
        return;
    }
    const QColor colour = palette().color(foregroundRole());
    {
        QPainter tint(&icon);
        tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
        tint.fillRect(icon.rect(), colour);
    }
    QPainter painter(this);
    drawFrame(&painter);
    const QRect inside = contentsRect();
    if (m_words.isEmpty()) {
        style()->drawItemPixmap(&painter, inside, Qt::AlignCenter, icon);
        return;
    }
    style()->drawItemPixmap(&painter, inside, Qt::AlignLeft | Qt::AlignVCenter, icon);
    const QRect room = inside.adjusted(sizeOf(icon).width() + gap, 0, 0, 0);
    painter.setPen(colour);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(m_words, Qt::ElideRight, room.width()));
}
