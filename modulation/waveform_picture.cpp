#include "modulation/waveform_picture.h"

#include <QEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_textlabel.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>
#include <qwt_text_label.h>

namespace
{
constexpr int margin = 8;
constexpr double curveWidth = 1.5;
// What is left free above and below for the line's own width, as a part of the height.
constexpr double freePart = 0.02;

class LevelScale : public QuantityScale
{
public:
    LevelScale() : QuantityScale(Unit::None) {}

    QwtText label(double level) const override
    {
        if (unit() != Unit::None)
            return QuantityScale::label(level);
        return level > 0.0 ? WaveformPicture::tr("ON") : WaveformPicture::tr("OFF");
    }
};

/// Its corners are not rounded to whole pixels: in a small picture that shows.
class SmoothCurve : public QwtPlotCurve
{
protected:
    void drawLines(QPainter* painter, const QwtScaleMap& times, const QwtScaleMap& levels,
                   const QRectF&, int from, int to) const override
    {
        QPolygonF line;
        for (int i = from; i <= to; ++i)
            line << QPointF(times.transform(sample(i).x()), levels.transform(sample(i).y()));
        painter->drawPolyline(line);
    }
};

/// Has the whole picture for its lines.
class Note : public QwtPlotTextLabel
{
protected:
    QRectF textRect(const QRectF& area, const QSizeF&) const override { return area; }
};

/// Lines at each quarter; numbers at the ends, and in the middle where it is wanted.
QwtScaleDiv quarters(double from, double to, double spare, bool hasMiddle)
{
    const double quarter = (to - from) / 4.0;
    const double middle = from + 2.0 * quarter;
    QList<double> plain = {from + quarter, from + 3.0 * quarter};
    QList<double> numbered = {from, to};
    if (hasMiddle)
        numbered.insert(1, middle);
    else
        plain.insert(1, middle);
    return QwtScaleDiv(from - spare, to + spare, {}, plain, numbered);
}
} // namespace

WaveformPicture::WaveformPicture(QWidget* parent)
    : QuantityPlot(new QuantityScale(Unit::Second), new LevelScale, parent),
      m_levels(static_cast<QuantityScale*>(axisScaleDraw(yLeft))), m_curve(new SmoothCurve),
      m_label(new Note)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setContentsMargins(margin, margin, margin, margin);
    const int halfLine = QFontMetrics(axisFont(yLeft)).height() / 2;
    axisWidget(yLeft)->setMinBorderDist(halfLine, halfLine);
    // The times stand below the lower half of the lowest level's number.
    axisScaleDraw(xBottom)->setSpacing(halfLine);
    grid().enableXMin(true);
    grid().enableYMin(true);
    m_curve->setRenderHint(QwtPlotItem::RenderAntialiased);
    m_curve->attach(this);
    m_label->attach(this);
    describe();
    recolour();
}

void WaveformPicture::setHeading(const QString& heading)
{
    QwtText text(heading);
    text.setRenderFlags(Qt::AlignLeft | Qt::AlignVCenter);
    text.setColor(palette().color(QPalette::WindowText));
    titleLabel()->setFont(font());
    setTitle(text);
}

void WaveformPicture::showWaveform(const Waveform& waveform, Unit levelUnit)
{
    m_waveform = waveform;
    m_levelUnit = levelUnit;
    m_note.clear();
    const bool hasUnit = levelUnit != Unit::None;
    const double top = hasUnit ? axisSpan(std::max(std::abs(waveform.low), std::abs(waveform.high)))
                               : waveform.high;
    const double bottom = hasUnit ? -top : waveform.low;
    const double span = pictureSpan(waveform);
    m_levels->setUnit(levelUnit);
    setAxisScaleDiv(yLeft, quarters(bottom, top, (top - bottom) * freePart, false));
    setAxisScaleDiv(xBottom, quarters(0.0, span, 0.0, true));
    axisScaleDraw(xBottom)->enableComponent(QwtAbstractScaleDraw::Labels, waveform.hasPeriod());
    m_curve->setSamples(waveformPoints(waveform, span));
    showParts();
}

void WaveformPicture::showNote(const QString& note)
{
    m_note = note;
    QwtText text(note);
    text.setRenderFlags(Qt::AlignCenter | Qt::TextWordWrap);
    text.setFont(axisFont(xBottom));
    m_label->setText(text);
    showParts();
}

/// Either the waveform with its scales or the note.
void WaveformPicture::showParts()
{
    const bool isWaveform = m_note.isEmpty();
    enableAxis(yLeft, isWaveform);
    enableAxis(xBottom, isWaveform);
    grid().setVisible(isWaveform);
    m_curve->setVisible(isWaveform);
    m_label->setVisible(!isWaveform);
    describe();
    recolour();
}

void WaveformPicture::recolour()
{
    const QColor muted = palette().color(QPalette::PlaceholderText);
    setColours(palette().color(QPalette::Base), muted);
    m_curve->setPen(palette().color(QPalette::Link), curveWidth);
    setHeading(title().text());
    QwtText note = m_label->text();
    note.setColor(muted);
    m_label->setText(note);
    replot();
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

void WaveformPicture::paintEvent(QPaintEvent*)
{
    paintPlotFrame(*this, rect());
}

void WaveformPicture::changeEvent(QEvent* event)
{
    QuantityPlot::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        describe();
    else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        // Not at once: a new style sheet has yet to reach the parts, and takes their colours back.
        QTimer::singleShot(0, this, &WaveformPicture::recolour);
}
