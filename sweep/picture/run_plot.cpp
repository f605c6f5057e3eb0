#include "sweep/picture/run_plot.h"

#include "sweep/picture/run_lines.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <qwt_plot_item.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

namespace
{
constexpr double secondsPerMicrosecond = 1e-6;
constexpr int mostValueTicks = 3;
constexpr int mostTimeTicks = 5;
constexpr double lineWidth = 1.5;
constexpr double dotRadius = 3.5;
// What is left free above and below, as a part of the height.
constexpr double freePart = 0.08;
// How far a logarithmic scale goes down from the highest value when the lowest is not above zero.
constexpr double lowestPart = 1e3;
} // namespace

/// The line itself, thinned to the columns of the canvas when it is drawn.
class RunLine : public QwtPlotItem
{
public:
    RunLine(const RunPoints& points, RunQuantity quantity) : m_points(points), m_quantity(quantity)
    {
        setZ(20);
        setRenderHint(RenderAntialiased);
    }

    void setColour(const QColor& colour) { m_colour = colour; }

    void draw(QPainter* painter, const QwtScaleMap& times, const QwtScaleMap& values,
              const QRectF& canvas) const override
    {
        const int columns = std::max(
            1,
            static_cast<int>(std::ceil(canvas.width() * painter->device()->devicePixelRatioF())));
        painter->setPen(QPen(m_colour, lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
        for (QPolygonF& line : runLines(m_points, m_quantity, times.s1() / secondsPerMicrosecond,
                                        times.s2() / secondsPerMicrosecond, columns)) {
            for (QPointF& corner : line)
                corner = {times.transform(corner.x() * secondsPerMicrosecond),
                          values.transform(std::max(corner.y(), values.s1()))};
            painter->drawPolyline(line);
        }
    }

private:
    const RunPoints& m_points;
    RunQuantity m_quantity;
    QColor m_colour;
};

/// The marked points, above the canvas: they move often, and what lies below is kept.
class RunMarks : public QWidget
{
public:
    explicit RunMarks(RunPlot& plot) : QWidget(plot.canvas()), m_plot(plot)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        plot.canvas()->installEventFilter(this);
    }

    void setColours(const RunPlotColours& colours)
    {
        m_colours = colours;
        update();
    }

    void setMarked(int pointed, int reached)
    {
        m_pointed = pointed;
        m_reached = reached;
        update();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Resize)
            resize(m_plot.canvas()->size());
        return QWidget::eventFilter(watched, event);
    }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        mark(painter, m_pointed, m_colours.pointed);
        mark(painter, m_reached, m_colours.reached);
    }

private:
    void mark(QPainter& painter, int number, const QColor& colour) const
    {
        if (number == 0)
            return;
        const QPointF place = m_plot.place(number);
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(colour);
        painter.drawLine(QPointF(place.x(), 0.0), QPointF(place.x(), height()));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(m_colours.base);
        painter.setBrush(colour);
        painter.drawEllipse(place, dotRadius, dotRadius);
    }

    RunPlot& m_plot;
    RunPlotColours m_colours;
    int m_pointed = 0;
    int m_reached = 0;
};

RunPlot::RunPlot(RunQuantity quantity, QWidget* parent)
    : QuantityPlot(new QuantityScale(Unit::Second),
                   new QuantityScale(quantity == RunQuantity::Frequency ? Unit::Hertz : Unit::Dbm),
                   parent),
      m_quantity(quantity), m_line(new RunLine(m_points, quantity)), m_marks(new RunMarks(*this))
{
    canvas()->setMouseTracking(true);
    setAxisMaxMajor(yLeft, mostValueTicks);
    setAxisMaxMajor(xBottom, mostTimeTicks);
    m_line->attach(this);
}

void RunPlot::setColours(const RunPlotColours& colours)
{
    QuantityPlot::setColours(colours.base, colours.scale);
    m_line->setColour(colours.line);
    m_marks->setColours(colours);
}

void RunPlot::setLogarithmic(bool isLogarithmic)
{
    if (isLogarithmic == m_isLogarithmic)
        return;
    m_isLogarithmic = isLogarithmic;
    if (isLogarithmic)
        setAxisScaleEngine(yLeft, new QwtLogScaleEngine);
    else
        setAxisScaleEngine(yLeft, new QwtLinearScaleEngine);
    fitValues();
}

void RunPlot::showPoints(const RunPoints& points, double fromUs, double toUs)
{
    m_points = points;
    m_fromUs = fromUs;
    m_toUs = toUs;
    setAxisScale(xBottom, fromUs * secondsPerMicrosecond, toUs * secondsPerMicrosecond);
    fitValues();
}

void RunPlot::fitValues()
{
    const ValueCourse values =
        m_points.course(m_quantity, m_points.pointsBetween(m_fromUs, m_toUs));
    double low = values.isEmpty() ? 0.0 : values.low;
    double high = values.isEmpty() ? 0.0 : values.high;
    if (m_isLogarithmic) {
        high = high > 0.0 ? high : 1.0;
        low = low > 0.0 ? low : high / lowestPart;
        const double factor = low < high ? std::pow(high / low, freePart) : 2.0;
        low /= factor;
        high *= factor;
    } else {
        const bool isFrequency = m_quantity == RunQuantity::Frequency;
        // A single value: the range extends beyond the neighbouring whole numbers, which would be
        // cut at the edge.
        const double spare = low < high
                                 ? (high - low) * freePart
                                 : std::max(1.25, isFrequency ? std::abs(high) * freePart : 0.0);
        low -= spare;
        high += spare;
    }
    m_lowest = low;
    setAxisScale(yLeft, low, high);
}

void RunPlot::markPoints(int pointed, int reached)
{
    const auto known = [this](int number) { return number <= m_points.count() ? number : 0; };
    m_marks->setMarked(known(pointed), known(reached));
}

void RunPlot::setTimesShown(bool isShown)
{
    axisScaleDraw(xBottom)->enableComponent(QwtAbstractScaleDraw::Labels, isShown);
}

RunPlot::ScaleRoom RunPlot::neededRoom()
{
    updateAxes();
    keepRoom({});
    int left = 0;
    ScaleRoom room;
    axisWidget(xBottom)->getBorderDistHint(left, room.right);
    room.left = axisScaleDraw(yLeft)->extent(axisFont(yLeft));
    return room;
}

void RunPlot::keepRoom(const ScaleRoom& room)
{
    axisScaleDraw(yLeft)->setMinimumExtent(room.left);
    axisWidget(xBottom)->setMinBorderDist(0, room.right);
}

double RunPlot::partAt(double x) const
{
    const QwtScaleMap times = canvasMap(xBottom);
    return (x - times.p1()) / (times.p2() - times.p1());
}

QPointF RunPlot::place(int number) const
{
    const RunPoint point = m_points.point(number);
    const double value = m_quantity == RunQuantity::Frequency ? point.frequencyHz : point.powerDbm;
    const double middleUs = (m_points.startUs(number) + m_points.startUs(number + 1)) / 2.0;
    // Values that cannot be drawn are placed at the lower edge.
    return {transform(xBottom, middleUs * secondsPerMicrosecond),
            transform(yLeft, value > m_lowest ? value : m_lowest)};
}
