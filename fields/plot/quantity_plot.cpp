#include "fields/plot/quantity_plot.h"

#include "fields/plot/time_scale.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

namespace
{
constexpr int fontPixels = 11;
constexpr int gap = 4;
constexpr int cornerRadius = 5;
constexpr int edgeAlpha = 110;
constexpr int gridAlpha = 70;
// Of a step between two ticks: what is smaller is a rounding error.
constexpr double zeroPart = 1e-6;

QColor faded(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}
} // namespace

QuantityScale::QuantityScale(Unit unit) : m_unit(unit)
{
    enableComponent(Backbone, false);
    enableComponent(Ticks, false);
    setSpacing(gap);
}

void QuantityScale::setUnit(Unit unit)
{
    m_unit = unit;
    invalidateCache();
}

QwtText QuantityScale::label(double value) const
{
    const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    if (ticks.size() < 2)
        return readableQuantity(value, m_unit);
    const double step = std::abs(ticks.at(1) - ticks.at(0));
    if (m_unit == Unit::Second && isInMinutes(scaleDiv().upperBound()))
        return minutesText(value, step);
    const double largest = std::max(std::abs(ticks.first()), std::abs(ticks.last()));
    // Neighbours have to differ, and nothing below that is more than a rounding error.
    const int digits = static_cast<int>(std::ceil(std::log10(largest / step))) + 2;
    const bool isZero = std::abs(value) < step * zeroPart;
    return readableQuantity(isZero ? 0.0 : value, m_unit, std::clamp(digits, 3, 12));
}

QuantityPlot::QuantityPlot(QuantityScale* times, QuantityScale* values, QWidget* parent)
    : QwtPlot(parent), m_grid(new QwtPlotGrid)
{
    setAutoReplot(false);
    auto* area = static_cast<QwtPlotCanvas*>(canvas());
    area->setFrameStyle(QFrame::NoFrame);
    // At a scale of the screen that is no whole number it may end a pixel early.
    area->setPaintAttribute(QwtPlotCanvas::Opaque, false);
    area->setAttribute(Qt::WA_OpaquePaintEvent, false);
    area->setFocusPolicy(Qt::NoFocus);
    area->setCursor(Qt::ArrowCursor);
    plotLayout()->setAlignCanvasToScales(true);
    plotLayout()->setSpacing(0);

    QFont small = font();
    small.setPixelSize(fontPixels);
    setAxisScaleDraw(xBottom, times);
    setAxisScaleEngine(xBottom, new TimeScaleEngine);
    setAxisScaleDraw(yLeft, values);
    for (const int axis : {yLeft, xBottom}) {
        setAxisFont(axis, small);
        axisWidget(axis)->setMargin(0);
        setAxisMaxMinor(axis, 0);
    }
    m_grid->attach(this);
}

void QuantityPlot::setColours(const QColor& base, const QColor& scale)
{
    setCanvasBackground(base);
    m_grid->setPen(faded(scale, gridAlpha));
    for (const int axis : {yLeft, xBottom}) {
        QPalette colours = axisWidget(axis)->palette();
        colours.setColor(QPalette::WindowText, scale);
        colours.setColor(QPalette::Text, scale);
        axisWidget(axis)->setPalette(colours);
    }
}

/// At a scale of the screen that is no whole number, the canvas' buffer leaves a line of pixels at
/// its edge as it found them: there it paints without one.
void QuantityPlot::resizeEvent(QResizeEvent* event)
{
    const qreal scale = devicePixelRatioF();
    static_cast<QwtPlotCanvas*>(canvas())->setPaintAttribute(QwtPlotCanvas::BackingStore,
                                                             scale == std::floor(scale));
    QwtPlot::resizeEvent(event);
}

void QuantityPlot::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        for (const int axis : {yLeft, xBottom}) {
            static_cast<QuantityScale*>(axisScaleDraw(axis))->retranslate();
            axisWidget(axis)->update();
        }
    }
    QwtPlot::changeEvent(event);
}

void paintPlotFrame(QWidget& widget, const QRect& place)
{
    const QPalette colours = widget.palette();
    const bool hasFocus = widget.hasFocus();
    const qreal width = hasFocus ? 2.0 : 1.0;
    const QColor edge = hasFocus ? colours.color(QPalette::LinkVisited)
                                 : faded(colours.color(QPalette::PlaceholderText), edgeAlpha);
    QPainter painter(&widget);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, width));
    painter.setBrush(colours.color(QPalette::Base));
    const qreal half = width / 2.0;
    painter.drawRoundedRect(QRectF(place).adjusted(half, half, -half, -half), cornerRadius,
                            cornerRadius);
}
