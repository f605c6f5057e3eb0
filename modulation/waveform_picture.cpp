#include "modulation/waveform_picture.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int fontPixels = 11;
constexpr int gap = 4;
constexpr int timeDivisions = 4;
constexpr int levelDivisions = 4;

QFont scaleFont(const QWidget& widget)
{
    QFont font = widget.font();
    font.setPixelSize(fontPixels);
    return font;
}

QColor faded(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}
} // namespace

WaveformPicture::WaveformPicture(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    describe();
}

QSize WaveformPicture::sizeHint() const
{
    return {200, 72};
}

void WaveformPicture::showWaveform(const Waveform& waveform, Unit levelUnit)
{
    m_waveform = waveform;
    m_levelUnit = levelUnit;
    m_note.clear();
    m_top = levelUnit == Unit::None
                ? waveform.high
                : axisSpan(std::max(std::abs(waveform.low), std::abs(waveform.high)));
    m_bottom = levelUnit == Unit::None ? waveform.low : -m_top;
    describe();
    update();
}

void WaveformPicture::showNote(const QString& note)
{
    m_note = note;
    describe();
    update();
}

void WaveformPicture::describe()
{
    setAccessibleName(tr("Picture of the waveform"));
    setAccessibleDescription(words());
    setToolTip(words());
}

QString WaveformPicture::words() const
{
    if (!m_note.isEmpty())
        return m_note;
    const Waveform& wave = m_waveform;
    const QString period = readableQuantity(wave.periodSeconds, Unit::Second);
    if (m_levelUnit == Unit::None && wave.hasPeriod())
        return tr("Pulses: period %1, width %2")
            .arg(period,
                 readableQuantity(wave.periodSeconds * wave.dutyPercent / 100.0, Unit::Second));
    if (m_levelUnit == Unit::None)
        return tr("Pulses: no period is set");
    QString result = shapeCaption(wave.shape);
    if (wave.hasPeriod())
        result += tr(", %1 (period %2)")
                      .arg(readableQuantity(1.0 / wave.periodSeconds, Unit::Hertz), period);
    result += wave.low == wave.high ? tr(", level %1").arg(readableQuantity(wave.high, m_levelUnit))
                                    : tr(", from %1 to %2")
                                          .arg(readableQuantity(wave.low, m_levelUnit),
                                               readableQuantity(wave.high, m_levelUnit));
    if (wave.shape == WaveShape::Square)
        result += tr(", duty %1").arg(readableQuantity(wave.dutyPercent, Unit::Percent));
    return result;
}

QString WaveformPicture::levelText(double level) const
{
    if (m_levelUnit != Unit::None)
        return readableQuantity(level, m_levelUnit);
    return level > 0.0 ? tr("ON") : tr("OFF");
}

/// What the scales leave free: levels are written on the left, times below.
QRect WaveformPicture::plotArea() const
{
    const QFontMetrics metrics(scaleFont(*this));
    const int levelWidth = std::max(metrics.horizontalAdvance(levelText(m_top)),
                                    metrics.horizontalAdvance(levelText(m_bottom)));
    return rect().adjusted(levelWidth + 2 * gap, 2 * gap, -gap, -metrics.height() - gap);
}

void WaveformPicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(scaleFont(*this));
    const QColor muted = palette().color(QPalette::PlaceholderText);
    painter.setPen(faded(muted, 110));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    painter.setBrush(Qt::NoBrush);
    if (!m_note.isEmpty()) {
        painter.setPen(muted);
        painter.drawText(rect().adjusted(gap, gap, -gap, -gap), Qt::AlignCenter | Qt::TextWordWrap,
                         m_note);
        return;
    }
    const QRect area = plotArea();
    paintScales(painter, area);
    paintWaveform(painter, area);
}

void WaveformPicture::paintScales(QPainter& painter, const QRect& area) const
{
    const QColor muted = palette().color(QPalette::PlaceholderText);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(faded(muted, 70));
    for (int i = 0; i <= timeDivisions; ++i) {
        const int x = area.left() + area.width() * i / timeDivisions;
        painter.drawLine(x, area.top(), x, area.bottom());
    }
    for (int i = 0; i <= levelDivisions; ++i) {
        const int y = area.top() + area.height() * i / levelDivisions;
        painter.drawLine(area.left(), y, area.right(), y);
    }
    painter.restore();

    painter.setPen(muted);
    const int lineHeight = painter.fontMetrics().height();
    const QRect levels(gap, area.top(), area.left() - 2 * gap, area.height());
    painter.drawText(levels.adjusted(0, -gap, 0, 0), Qt::AlignRight | Qt::AlignTop,
                     levelText(m_top));
    painter.drawText(levels.adjusted(0, 0, 0, gap), Qt::AlignRight | Qt::AlignBottom,
                     levelText(m_bottom));
    if (!m_waveform.hasPeriod())
        return;
    const QRect times(area.left(), area.bottom() + 2, area.width(), lineHeight);
    const double span = pictureSpan(m_waveform);
    painter.drawText(times, Qt::AlignLeft, QStringLiteral("0"));
    painter.drawText(times, Qt::AlignHCenter, readableQuantity(span / 2.0, Unit::Second));
    painter.drawText(times, Qt::AlignRight, readableQuantity(span, Unit::Second));
}

void WaveformPicture::paintWaveform(QPainter& painter, const QRect& area) const
{
    const double span = pictureSpan(m_waveform);
    const double height = m_top - m_bottom;
    if (!(height > 0.0))
        return;
    QPolygonF line;
    for (const QPointF& corner : waveformPoints(m_waveform, span)) {
        line << QPointF(area.left() + corner.x() / span * area.width(),
                        area.bottom() - (corner.y() - m_bottom) / height * area.height());
    }
    painter.setPen(
        QPen(palette().color(QPalette::Link), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(line);
}

void WaveformPicture::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        describe();
        update();
    }
    QWidget::changeEvent(event);
}
