#include "modulation/waveform.h"
#include "modulation/waveform_picture.h"
#include "numbers/readable_quantity.h"

#include <QTest>

#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(WaveShape)
Q_DECLARE_METATYPE(Unit)
Q_DECLARE_METATYPE(Waveform)
Q_DECLARE_METATYPE(QVector<QPointF>)

namespace
{
const double infinity = std::numeric_limits<double>::infinity();

/// The level of a line at a time; at a jump the later one.
double levelAt(const QVector<QPointF>& line, double time)
{
    for (int i = line.size() - 2; i >= 0; --i) {
        const QPointF from = line.at(i);
        const QPointF to = line.at(i + 1);
        if (from.x() <= time && time <= to.x() && from.x() < to.x())
            return from.y() + (to.y() - from.y()) * (time - from.x()) / (to.x() - from.x());
    }
    return std::nan("");
}

bool isGreenInColumn(const QImage& image, int x)
{
    for (int y = 0; y < image.height(); ++y) {
        const QColor found = image.pixelColor(x, y);
        if (found.green() > 200 && found.red() < 100 && found.blue() < 100)
            return true;
    }
    return false;
}
} // namespace

class WaveformTest : public QObject
{
    Q_OBJECT

private slots:
    void points_data();
    void points();
    void pointsCoverTheSpan_data();
    void pointsCoverTheSpan();
    void spans_data();
    void spans();
    void words_data();
    void words();
    void paintsInTheColoursOfThePalette();
};

void WaveformTest::points_data()
{
    QTest::addColumn<WaveShape>("shape");
    QTest::addColumn<QVector<QPointF>>("samples"); // period 2, levels -3 to 3

    QTest::newRow("sine") << WaveShape::Sine
                          << QVector<QPointF>{{0, 0}, {0.5, 3}, {1, 0}, {1.5, -3}, {2.5, 3}};
    QTest::newRow("saw up") << WaveShape::SawPositive
                            << QVector<QPointF>{{0, -3}, {1, 0}, {1.99, 2.97}, {2.01, -2.97}};
    QTest::newRow("saw down") << WaveShape::SawNegative
                              << QVector<QPointF>{{0, 3}, {1, 0}, {1.99, -2.97}, {2.01, 2.97}};
    QTest::newRow("triangle") << WaveShape::Triangle
                              << QVector<QPointF>{{0, 0}, {0.5, 3}, {1, 0}, {1.5, -3}, {3, 0}};
    QTest::newRow("square") << WaveShape::Square
                            << QVector<QPointF>{{0, 3}, {0.59, 3}, {0.61, -3}, {1.9, -3}, {2.1, 3}};
    QTest::newRow("DC") << WaveShape::Dc << QVector<QPointF>{{0, 3}, {1, 3}, {4, 3}};
}

void WaveformTest::points()
{
    QFETCH(WaveShape, shape);
    QFETCH(QVector<QPointF>, samples);
    const QVector<QPointF> line = waveformPoints({shape, 2.0, 30.0, -3.0, 3.0}, 5.0);
    for (const QPointF& sample : samples) {
        const double level = levelAt(line, sample.x());
        QVERIFY2(std::abs(level - sample.y()) < 0.02,
                 qPrintable(QString("%1 at %2").arg(level).arg(sample.x())));
    }
}

void WaveformTest::pointsCoverTheSpan_data()
{
    QTest::addColumn<Waveform>("waveform");
    for (int shape = 0; shape < shapeCount; ++shape) {
        const auto add = [shape](const char* name, double period, double duty) {
            QTest::addRow("%s, shape %d", name, shape)
                << Waveform{static_cast<WaveShape>(shape), period, duty, -1.0, 1.0};
        };
        add("even", 0.5e-3, 50.0);
        add("cut", 0.3e-3, 50.0);
        add("duty 0", 1.0, 0.0);
        add("duty beyond", 1.0, 250.0);
        add("no period", 0.0, 50.0);
        add("endless period", infinity, 50.0);
        add("not a number", std::nan(""), 50.0);
        add("very fast", 1e-300, 50.0);
    }
}

void WaveformTest::pointsCoverTheSpan()
{
    QFETCH(Waveform, waveform);
    const double span = pictureSpan(waveform);
    if (waveform.hasPeriod()) {
        QVERIFY(span >= 1.999 * waveform.periodSeconds);
        QVERIFY(span <= 5.001 * waveform.periodSeconds);
    }
    const QVector<QPointF> line = waveformPoints(waveform, span);
    QVERIFY(line.size() >= 2);
    QVERIFY2(line.size() < 400, qPrintable(QString::number(line.size())));
    QCOMPARE(line.first().x(), 0.0);
    QVERIFY(std::abs(line.last().x() - span) <= 1e-6 * span);
    for (int i = 0; i < line.size(); ++i) {
        QVERIFY(std::abs(line.at(i).y()) <= 1.0);
        QVERIFY(i == 0 || line.at(i).x() >= line.at(i - 1).x());
    }
}

void WaveformTest::spans_data()
{
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("span");
    QTest::newRow("1") << 1.0 << 1.0;
    QTest::newRow("1.01") << 1.01 << 2.0;
    QTest::newRow("0.2") << 0.2 << 0.2;
    QTest::newRow("0.6e-6") << 0.6e-6 << 1e-6;
    QTest::newRow("3e9") << 3e9 << 5e9;
    QTest::newRow("1000") << 1000.0 << 1000.0;
    QTest::newRow("0") << 0.0 << 1.0;
    QTest::newRow("-5") << -5.0 << 1.0;
    QTest::newRow("infinite") << infinity << 1.0;
}

void WaveformTest::spans()
{
    QFETCH(double, length);
    QTEST(axisSpan(length), "span");
}

void WaveformTest::words_data()
{
    QTest::addColumn<Waveform>("waveform");
    QTest::addColumn<Unit>("unit");
    QTest::addColumn<QString>("words");
    QTest::newRow("sine") << Waveform{WaveShape::Sine, 1e-3, 50, -2, 2} << Unit::Percent
                          << "Sine, 1 kHz (period 1 ms), from \u22122 % to 2 %";
    QTest::newRow("square") << Waveform{WaveShape::Square, 1e-3, 30, -2, 2} << Unit::Volt
                            << "Rectangle, 1 kHz (period 1 ms), from \u22122 V to 2 V, duty 30 %";
    QTest::newRow("random") << Waveform{WaveShape::Random, 0, 50, -2, 2} << Unit::Radian
                            << "Random, from \u22122 rad to 2 rad";
    QTest::newRow("DC") << Waveform{WaveShape::Dc, 0, 50, 2, 2} << Unit::Volt << "DC, level 2 V";
    QTest::newRow("pulses") << Waveform{WaveShape::Square, 1e-3, 0.1, 0, 1} << Unit::None
                            << "Pulses: period 1 ms, width 1 µs";
    QTest::newRow("no pulses") << Waveform{WaveShape::Square, 0, 0, 0, 1} << Unit::None
                               << "Pulses: no period is set";
}

void WaveformTest::words()
{
    QFETCH(Waveform, waveform);
    QFETCH(Unit, unit);
    WaveformPicture picture;
    picture.showNote("nothing");
    QCOMPARE(picture.accessibleDescription(), QString("nothing"));
    picture.showWaveform(waveform, unit);
    QTEST(picture.accessibleDescription(), "words");
    QCOMPARE(picture.toolTip(), picture.accessibleDescription());
}

void WaveformTest::paintsInTheColoursOfThePalette()
{
    WaveformPicture picture;
    QPalette colours;
    colours.setColor(QPalette::Base, Qt::black);
    colours.setColor(QPalette::Link, Qt::green);
    picture.setPalette(colours);
    picture.resize(200, 100);
    // A level in the middle of the picture, over its whole width.
    picture.showWaveform({WaveShape::Dc, 0.0, 50.0, 0.3, 0.3}, Unit::Volt);
    const QImage image = picture.grab().toImage();
    QCOMPARE(image.pixelColor(5, 50), QColor(Qt::black));
    for (int x = 60; x < 190; x += 10)
        QVERIFY2(isGreenInColumn(image, x), qPrintable(QString::number(x)));
    picture.showNote("off");
    QVERIFY(!isGreenInColumn(picture.grab().toImage(), 100));
}

QTEST_MAIN(WaveformTest)
#include "waveform_test.moc"
