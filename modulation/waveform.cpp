#include "modulation/waveform.h"

#include <QCoreApplication>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
constexpr char captionContext[] = "Shape";
constexpr int sineSteps = 48;
constexpr int noiseStepsPerSpan = 48;
constexpr double leastPeriodsShown = 2.0;

constexpr ShapeNames shapeRows[] = {
    {WaveShape::Sine, QT_TRANSLATE_NOOP("Shape", "Sine"), ":/images/Sin.png", "Sin_",
     "sine_select"},
    {WaveShape::SawPositive, QT_TRANSLATE_NOOP("Shape", "Saw positive"), ":/images/Saw_pos.png",
     "SawPos_", "sawPos_select"},
    {WaveShape::SawNegative, QT_TRANSLATE_NOOP("Shape", "Saw negative"), ":/images/Saw_neg.png",
     "SawNeg_", "sawNeg_select"},
    {WaveShape::Triangle, QT_TRANSLATE_NOOP("Shape", "Triangle"), ":/images/triangle.png",
     "Triangle_", "triangle_select"},
    {WaveShape::Random, QT_TRANSLATE_NOOP("Shape", "Random"), ":/images/random.png", "Random_",
     "random_select"},
    {WaveShape::Square, QT_TRANSLATE_NOOP("Shape", "Rectangle"), ":/images/square.png", "Rect_",
     "rectangle_select"},
    {WaveShape::Dc, QT_TRANSLATE_NOOP("Shape", "DC"), ":/images/dc.png", nullptr, "dc_select"},
};
static_assert(std::size(shapeRows) == shapeCount);

/// One period: time from 0 to 1, level from -1 to 1.
QVector<QPointF> periodCorners(const Waveform& waveform)
{
    switch (waveform.shape) {
    case WaveShape::Sine: {
        QVector<QPointF> corners;
        for (int i = 0; i <= sineSteps; ++i) {
            const double time = static_cast<double>(i) / sineSteps;
            corners << QPointF(time, std::sin(2.0 * M_PI * time));
        }
        return corners;
    }
    case WaveShape::SawPositive:
        return {{0.0, -1.0}, {1.0, 1.0}};
    case WaveShape::SawNegative:
        return {{0.0, 1.0}, {1.0, -1.0}};
    case WaveShape::Triangle:
        return {{0.0, 0.0}, {0.25, 1.0}, {0.75, -1.0}, {1.0, 0.0}};
    case WaveShape::Square: {
        const double fall = std::clamp(waveform.dutyPercent / 100.0, 0.0, 1.0);
        return {{0.0, 1.0}, {fall, 1.0}, {fall, -1.0}, {1.0, -1.0}};
    }
    case WaveShape::Random:
    case WaveShape::Dc:
        break;
    }
    return {{0.0, 1.0}, {1.0, 1.0}};
}

/// Steps that look like noise and are the same each time, so that the picture stands still.
QVector<QPointF> noiseCorners(double span)
{
    QVector<QPointF> corners;
    quint32 state = 0x2545f491U;
    for (int i = 0; i < noiseStepsPerSpan; ++i) {
        state = state * 1664525U + 1013904223U;
        const double level = (state >> 8U) / static_cast<double>(0xffffffU) * 2.0 - 1.0;
        const double step = span / noiseStepsPerSpan;
        corners << QPointF(i * step, level) << QPointF((i + 1) * step, level);
    }
    return corners;
}

/// Cuts a line with non-decreasing times at a time within it.
void cutAt(QVector<QPointF>& corners, double time)
{
    const auto beyond = std::find_if(corners.begin(), corners.end(),
                                     [time](const QPointF& p) { return p.x() > time; });
    if (beyond == corners.end() || beyond == corners.begin())
        return;
    const QPointF before = *(beyond - 1);
    const double share = (time - before.x()) / (beyond->x() - before.x());
    *beyond = QPointF(time, before.y() + share * (beyond->y() - before.y()));
    corners.erase(beyond + 1, corners.end());
}
} // namespace

const ShapeNames& shapeNames(WaveShape shape)
{
    return shapeRows[static_cast<std::size_t>(shape)];
}

QString shapeCaption(WaveShape shape)
{
    return QCoreApplication::translate(captionContext, shapeNames(shape).caption);
}

bool Waveform::hasPeriod() const
{
    return std::isfinite(periodSeconds) && periodSeconds > 0.0;
}

double axisSpan(double length)
{
    if (!std::isfinite(length) || length <= 0.0)
        return 1.0;
    // So that 0.2 counts as 2e-1 despite rounding in its last bit.
    constexpr double tolerance = 1.0 + 1e-9;
    const double decade = std::pow(10.0, std::floor(std::log10(length)));
    for (const double step : {1.0, 2.0, 5.0}) {
        if (step * decade * tolerance >= length)
            return step * decade;
    }
    return 10.0 * decade;
}

double pictureSpan(const Waveform& waveform)
{
    return waveform.hasPeriod() ? axisSpan(leastPeriodsShown * waveform.periodSeconds)
                                : leastPeriodsShown;
}

QVector<QPointF> waveformPoints(const Waveform& waveform, double span)
{
    QVector<QPointF> corners;
    if (waveform.shape == WaveShape::Random) {
        corners = noiseCorners(span);
    } else {
        const double period = waveform.hasPeriod() ? waveform.periodSeconds : 1.0;
        const QVector<QPointF> one = periodCorners(waveform);
        for (int i = 0; i < qCeil(span / period - 1e-9); ++i) {
            for (const QPointF& corner : one)
                corners << QPointF((i + corner.x()) * period, corner.y());
        }
        cutAt(corners, span);
    }
    const double middle = (waveform.high + waveform.low) / 2.0;
    const double swing = (waveform.high - waveform.low) / 2.0;
    for (QPointF& corner : corners)
        corner.setY(middle + swing * corner.y());
    return corners;
}
