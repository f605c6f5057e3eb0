#include "modulation/waveform.h"
#include "modulation/waveform_picture.h"
#include "tests/support/rows.h"

#include <QTest>

#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(WaveShape)
using Line = QVector<QPointF>;
Q_DECLARE_METATYPE(Line)

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

} // namespace

class WaveformTest : public QObject
{
    Q_OBJECT

private slots:
    void points_data()
    {
        testColumns<WaveShape, Line>("shape", "samples"); // period 2, levels -3 to 3

        testRow("sine", WaveShape::Sine, Line{{0, 0}, {0.5, 3}, {1, 0}, {1.5, -3}, {2.5, 3}});
        testRow("saw up", WaveShape::SawPositive,
                Line{{0, -3}, {1, 0}, {1.99, 2.97}, {2.01, -2.97}});
        testRow("saw down", WaveShape::SawNegative,
                Line{{0, 3}, {1, 0}, {1.99, -2.97}, {2.01, 2.97}});
        testRow("triangle", WaveShape::Triangle, Line{{0, 0}, {0.5, 3}, {1, 0}, {1.5, -3}, {3, 0}});
        testRow("square", WaveShape::Square,
                Line{{0, 3}, {0.59, 3}, {0.61, -3}, {1.9, -3}, {2.1, 3}});
        testRow("DC", WaveShape::Dc, Line{{0, 3}, {1, 3}, {4, 3}});
    }

    void points()
    {
        QFETCH(WaveShape, shape);
        QFETCH(Line, samples);
        const Line line = waveformPoints({shape, 2.0, 30.0, -3.0, 3.0}, 5.0);
        for (const QPointF& sample : samples) {
            const double level = levelAt(line, sample.x());
            QVERIFY2(std::abs(level - sample.y()) < 0.02,
                     qPrintable(QString("%1 at %2").arg(level).arg(sample.x())));
        }
    }

    void pointsCoverTheSpan_data()
    {
        testColumns<double, double>("period", "duty");
        testRow("even", 0.5e-3, 50.0);
        testRow("cut", 0.3e-3, 50.0);
        testRow("duty 0", 1.0, 0.0);
        testRow("duty beyond", 1.0, 250.0);
        testRow("no period", 0.0, 50.0);
        testRow("endless period", infinity, 50.0);
        testRow("not a number", std::nan(""), 50.0);
        testRow("very fast", 1e-300, 50.0);
    }
    void pointsCoverTheSpan()
    {
        QFETCH(double, period);
        QFETCH(double, duty);
        for (int shape = 0; shape < shapeCount; ++shape) {
            const Waveform waveform{static_cast<WaveShape>(shape), period, duty, -1.0, 1.0};
            const double span = pictureSpan(waveform);
            QVERIFY(!waveform.hasPeriod() || (span >= 1.999 * period && span <= 5.001 * period));
            const Line line = waveformPoints(waveform, span);
            QVERIFY2(line.size() >= 2 && line.size() < 400, qPrintable(QString::number(shape)));
            QCOMPARE(line.first().x(), 0.0);
            QVERIFY(std::abs(line.last().x() - span) <= 1e-6 * span);
            for (int i = 0; i < line.size(); ++i) {
                QVERIFY(std::abs(line.at(i).y()) <= 1.0);
                QVERIFY(i == 0 || line.at(i).x() >= line.at(i - 1).x());
            }
        }
    }

    /// The panels' test reads the other words.
    void pulsesWithoutPeriod()
    {
        WaveformPicture picture;
        picture.showWaveform({WaveShape::Square, 0, 0, 0, 1}, Unit::None);
        QCOMPARE(picture.accessibleDescription(), QString("Pulses: no period is set"));
        QCOMPARE(picture.toolTip(), picture.accessibleDescription());
    }
};

QTEST_MAIN(WaveformTest)
#include "waveform_test.moc"
