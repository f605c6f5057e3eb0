#include "sweep/picture/run_lines.h"
#include "sweep/picture/run_points.h"

#include <QTest>

#include <algorithm>
#include <cmath>

Q_DECLARE_METATYPE(SweepTexts)
Q_DECLARE_METATYPE(RowTexts)

namespace
{
const QString anyPower = QStringLiteral("-5");

RunPoints listOf(const QVector<RowTexts>& rows)
{
    return RunPoints::ofTable(
        rows.size(), [&](int row) { return rows.at(row); }, anyPower);
}

/// Dwell times of 10, 20 and 30 µs, and one of none between the last two.
RunPoints unevenList()
{
    return listOf(
        {{"1 000", "0", "10"}, {"2 000", "1", "20"}, {"9 000", "2", "0"}, {"3 000", "3", "30"}});
}

RunPoints longList(int count, int wrongRow)
{
    return RunPoints::ofTable(
        count,
        [=](int row) {
            return RowTexts{row == wrongRow ? "18 000 000 000" : "1 000 000", "0", "100"};
        },
        anyPower);
}
} // namespace

class RunPointsTest : public QObject
{
    Q_OBJECT

private slots:
    void sweeps_data();
    void sweeps();
    void refusedSweeps_data();
    void refusedSweeps();
    void cells();
    void wrongPoints_data();
    void wrongPoints();
    void times_data();
    void times();
    void everyStartIsReached();
    void visiblePoints_data();
    void visiblePoints();
    void linesKeepEveryExtreme();
    void linesHaveGaps();
    void linesOfEnormousSweeps();
};

void RunPointsTest::sweeps_data()
{
    QTest::addColumn<SweepTexts>("texts");
    QTest::addColumn<int>("number");
    QTest::addColumn<double>("frequencyHz");
    QTest::addColumn<double>("powerDbm");
    QTest::addColumn<double>("totalUs");

    const SweepTexts rising{false, "-3.5", "1 000 000", "2 000 000", "1 001", "1 000"};
    QTest::newRow("first") << rising << 1 << 1e6 << -3.5 << 1001e3;
    QTest::newRow("middle") << rising << 501 << 1.5e6 << -3.5 << 1001e3;
    QTest::newRow("last") << rising << 1001 << 2e6 << -3.5 << 1001e3;
    const SweepTexts power{true, "5 000 000", "10", "- 100", "3", "0.5"};
    QTest::newRow("power falls") << power << 2 << 5e6 << -45.0 << 1.5;
    QTest::newRow("one point stays at the start")
        << SweepTexts{false, "0", "1 000", "9 000", "1", "7"} << 1 << 1e3 << 0.0 << 7.0;
    QTest::newRow("no way to go") << SweepTexts{false, "0", "1 000", "1 000", "5", "7"} << 4 << 1e3
                                  << 0.0 << 35.0;
    QTest::newRow("a milliard points")
        << SweepTexts{false, "0", "0", "999 999 999", "1 000 000 000", "1 000"} << 500000001 << 5e8
        << 0.0 << 1e12;
}

void RunPointsTest::sweeps()
{
    QFETCH(SweepTexts, texts);
    QFETCH(int, number);
    const RunPoints points = RunPoints::ofSweep(texts);
    QTEST(points.point(number).frequencyHz, "frequencyHz");
    QTEST(points.point(number).powerDbm, "powerDbm");
    QTEST(points.totalUs(), "totalUs");
}

void RunPointsTest::refusedSweeps_data()
{
    QTest::addColumn<SweepTexts>("texts");
    QTest::newRow("empty") << SweepTexts{};
    QTest::newRow("no start") << SweepTexts{false, "0", "", "2", "3", "4"};
    QTest::newRow("no number") << SweepTexts{false, "0", "1", "2 Hz", "3", "4"};
    QTest::newRow("decimal comma") << SweepTexts{false, "0,5", "1", "2", "3", "4"};
    QTest::newRow("not finite") << SweepTexts{false, "0", "1", "inf", "3", "4"};
    QTest::newRow("beyond anything") << SweepTexts{false, "0", "1", "1e300", "3", "4"};
    QTest::newRow("no points") << SweepTexts{false, "0", "1", "2", "0", "4"};
    QTest::newRow("half a point") << SweepTexts{false, "0", "1", "2", "2.5", "4"};
    QTest::newRow("too many points") << SweepTexts{false, "0", "1", "2", "1 000 000 001", "4"};
    QTest::newRow("no dwell") << SweepTexts{false, "0", "1", "2", "3", " "};
}

void RunPointsTest::refusedSweeps()
{
    QFETCH(SweepTexts, texts);
    const RunPoints points = RunPoints::ofSweep(texts);
    QVERIFY(points.isEmpty());
    QCOMPARE(points.totalUs(), 0.0);
    QCOMPARE(points.pointAt(5.0), 0);
    QVERIFY(points.pointsBetween(0.0, 1.0).isEmpty());
    QVERIFY(runLines(points, RunQuantity::Frequency, 0.0, 1.0, 100).isEmpty());
}

void RunPointsTest::cells()
{
    const RunPoints points =
        listOf({{"1 234 567", "-1.5", "2 000"}, {"", " ", ""}, {"x", "0,5", "y"}});
    QCOMPARE(points.point(1).frequencyHz, 1234567.0);
    QCOMPARE(points.point(1).powerDbm, -1.5);
    QCOMPARE(points.point(1).dwellUs, 2000.0);
    QCOMPARE(points.point(2).frequencyHz, 1000.0);
    QCOMPARE(points.point(2).powerDbm, -5.0);
    QCOMPARE(points.point(2).dwellUs, 1000.0);
    QVERIFY(std::isnan(points.point(3).frequencyHz));
    QVERIFY(std::isnan(points.point(3).powerDbm));
    QCOMPARE(points.totalUs(), 3000.0);
}

void RunPointsTest::wrongPoints_data()
{
    QTest::addColumn<QVector<RowTexts>>("rows");
    QTest::addColumn<int>("firstWrong");
    const RowTexts right{"1 000", "0", "100"};
    QTest::newRow("none") << QVector<RowTexts>{right, right} << 0;
    QTest::newRow("no rows") << QVector<RowTexts>{} << 0;
    QTest::newRow("unreadable") << QVector<RowTexts>{right, {"a", "0", "100"}, {"", "a", ""}} << 2;
    QTest::newRow("zero hertz") << QVector<RowTexts>{{"0", "0", "100"}} << 1;
    QTest::newRow("negative dwell") << QVector<RowTexts>{right, right, {"1", "0", "-5"}} << 3;
    QTest::newRow("no time") << QVector<RowTexts>{right, {"1", "0", "0"}} << 2;
}

void RunPointsTest::wrongPoints()
{
    QFETCH(QVector<RowTexts>, rows);
    QTEST(listOf(rows).firstWrong(), "firstWrong");
    const RunPoints throughZero = RunPoints::ofSweep({false, "0", "1 000", "-1 000", "21", "1"});
    QCOMPARE(throughZero.firstWrong(), 11);
}

void RunPointsTest::times_data()
{
    QTest::addColumn<double>("elapsedUs");
    QTest::addColumn<int>("number");
    QTest::newRow("before") << -1.0 << 1;
    QTest::newRow("start") << 0.0 << 1;
    QTest::newRow("end of the first") << 9.999 << 1;
    QTest::newRow("second") << 10.0 << 2;
    QTest::newRow("over the one without time") << 30.0 << 4;
    QTest::newRow("last") << 59.999 << 4;
    QTest::newRow("end") << 60.0 << 4;
    QTest::newRow("long after") << 1e12 << 4;
}

void RunPointsTest::times()
{
    QFETCH(double, elapsedUs);
    QTEST(unevenList().pointAt(elapsedUs), "number");
}

/// Rounding must not make a point late.
void RunPointsTest::everyStartIsReached()
{
    for (const char* dwell : {"0.1", "0.3", "7", "1234.567"}) {
        const RunPoints points = RunPoints::ofSweep({false, "0", "1", "2", "5000", dwell});
        for (int number = 1; number <= points.count(); ++number)
            QCOMPARE(points.pointAt(points.startUs(number)), number);
    }
}

void RunPointsTest::visiblePoints_data()
{
    QTest::addColumn<double>("fromUs");
    QTest::addColumn<double>("toUs");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::newRow("all") << 0.0 << 60.0 << 1 << 4;
    QTest::newRow("within one") << 12.0 << 13.0 << 2 << 2;
    QTest::newRow("the one without time") << 29.0 << 31.0 << 2 << 4;
    QTest::newRow("at its moment") << 30.0 << 30.0 << 2 << 4;
    QTest::newRow("after") << 61.0 << 70.0 << 1 << 0;
}

void RunPointsTest::visiblePoints()
{
    QFETCH(double, fromUs);
    QFETCH(double, toUs);
    const PointRange range = unevenList().pointsBetween(fromUs, toUs);
    QTEST(range.first, "first");
    QTEST(range.last, "last");
}

void RunPointsTest::linesKeepEveryExtreme()
{
    const RunPoints points = longList(100000, 77777);
    const QVector<QPolygonF> lines =
        runLines(points, RunQuantity::Frequency, 0.0, points.totalUs(), 400);
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.first().size() <= 1600);
    const auto* highest = std::max_element(
        lines.first().begin(), lines.first().end(),
        [](const QPointF& left, const QPointF& right) { return left.y() < right.y(); });
    QCOMPARE(highest->y(), 18e9);
    QVERIFY(std::abs(highest->x() - points.startUs(77778)) < points.totalUs() / 400);
}

void RunPointsTest::linesHaveGaps()
{
    const RunPoints points =
        listOf({{"1", "0", "5"}, {"1", "0", "5"}, {"1", "?", "5"}, {"1", "2", "5"}});
    const QVector<QPointF> before = {{0, 0}, {5, 0}, {10, 0}};
    const QVector<QPointF> after = {{15, 2}, {20, 2}};
    const QVector<QPolygonF> expected = {before, after};
    QCOMPARE(runLines(points, RunQuantity::Power, 0.0, 20.0, 100), expected);
    QCOMPARE(runLines(points, RunQuantity::Frequency, 0.0, 20.0, 100).size(), 1);
}

void RunPointsTest::linesOfEnormousSweeps()
{
    const RunPoints points =
        RunPoints::ofSweep({false, "0", "1 000", "2 000", "1 000 000 000", "1"});
    const QVector<QPolygonF> lines = runLines(points, RunQuantity::Frequency, 0.0, 1e9, 400);
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().first().y(), 1000.0);
    QCOMPARE(lines.first().last().y(), 2000.0);
}

QTEST_MAIN(RunPointsTest)
#include "run_points_test.moc"
