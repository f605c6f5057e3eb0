#include "modulation/waveform.h"
#include "modulation/waveform_picture.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

using Line = QVector<QPointF>;

namespace
{
const double infinity = std::numeric_limits<double>::infinity();

/// The level of a line at a time; at a jump the later one.
double levelAt(const Line& line, double time)
{
    for (int i = line.size() - 2; i >= 0; --i) {
        const QPointF from = line.at(i);
        const QPointF to = line.at(i + 1);
        if (from.x() <= time && time <= to.x() && from.x() < to.x())
            return from.y() + (to.y() - from.y()) * (time - from.x()) / (to.x() - from.x());
    }
    return std::nan("");
}

void checkSpan(const Waveform& waveform)
{
    const double span = pictureSpan(waveform);
    QVERIFY(!waveform.hasPeriod() ||
            (span >= 1.999 * waveform.periodSeconds && span <= 5.001 * waveform.periodSeconds));
    const Line line = waveformPoints(waveform, span);
    QVERIFY(line.size() >= 2 && line.size() < 400);
    QCOMPARE(line.first().x(), 0.0);
    QVERIFY(std::abs(line.last().x() - span) <= 1e-6 * span);
    for (int i = 0; i < line.size(); ++i) {
        QVERIFY(std::abs(line.at(i).y()) <= 1.0);
        QVERIFY(i == 0 || line.at(i).x() >= line.at(i - 1).x());
    }
}
} // namespace

class WaveformTest : public QObject
{
    Q_OBJECT

private slots:
    void points()
    {
        // Period 2, levels -3 to 3.
        const std::pair<WaveShape, Line> shapes[] = {
            {WaveShape::Sine, {{0, 0}, {0.5, 3}, {1, 0}, {1.5, -3}, {2.5, 3}}},
            {WaveShape::SawPositive, {{0, -3}, {1, 0}, {1.99, 2.97}, {2.01, -2.97}}},
            {WaveShape::SawNegative, {{0, 3}, {1, 0}, {1.99, -2.97}, {2.01, 2.97}}},
            {WaveShape::Triangle, {{0, 0}, {0.5, 3}, {1, 0}, {1.5, -3}, {3, 0}}},
            {WaveShape::Square, {{0, 3}, {0.59, 3}, {0.61, -3}, {1.9, -3}, {2.1, 3}}},
            {WaveShape::Dc, {{0, 3}, {1, 3}, {4, 3}}},
        };
        for (const auto& [shape, samples] : shapes) {
            const Line line = waveformPoints({shape, 2.0, 30.0, -3.0, 3.0}, 5.0);
            for (const QPointF& sample : samples) {
                const double level = levelAt(line, sample.x());
                QVERIFY2(std::abs(level - sample.y()) < 0.02,
                         qPrintable(QString("%1 at %2").arg(level).arg(sample.x())));
            }
        }
    }

    void pointsCoverTheSpan()
    {
        // Period and duty: even, cut, nothing high, too much, and periods that are none.
        for (const auto& [period, duty] : {std::pair(0.5e-3, 50.0),
                                           {0.3e-3, 50.0},
                                           {1.0, 0.0},
                                           {1.0, 250.0},
                                           {0.0, 50.0},
                                           {infinity, 50.0},
                                           {std::nan(""), 50.0},
                                           {1e-300, 50.0}}) {
            for (int shape = 0; shape < shapeCount; ++shape)
                checkSpan({static_cast<WaveShape>(shape), period, duty, -1.0, 1.0});
        }
    }

    void noiseIsUneven()
    {
        std::set<double> levels;
        for (const QPointF& point : waveformPoints({WaveShape::Random, 0.0, 50.0, -1.0, 1.0}, 1.0))
            levels.insert(point.y());
        QVERIFY(levels.size() > 20 && *levels.begin() < -0.5 && *levels.rbegin() > 0.5);
    }

    void picture()
    {
        WaveformPicture plot;
        plot.showWaveform({WaveShape::Sine, 1e-3, 50, -2, 2}, Unit::Volt);
        for (const int axis : {QwtPlot::yLeft, QwtPlot::xBottom}) {
            const QwtScaleDiv& scale = plot.axisScaleDiv(axis);
            QList<double> lines =
                scale.ticks(QwtScaleDiv::MediumTick) + scale.ticks(QwtScaleDiv::MajorTick);
            std::sort(lines.begin(), lines.end());
            QCOMPARE(lines.size(), 5);
            for (int i = 1; i < lines.size(); ++i)
                QCOMPARE(lines.at(i) - lines.at(i - 1), lines.last() / (axis ? 4 : 2));
        }
        // The panels' test reads the other words.
        plot.showWaveform({WaveShape::Square, 0, 0, 0, 1}, Unit::None);
        QCOMPARE(plot.accessibleDescription(), QString("Pulses: no period is set"));
        QCOMPARE(plot.toolTip(), plot.accessibleDescription());
    }
};

QTEST_MAIN(WaveformTest)
#include "waveform_test.moc"
