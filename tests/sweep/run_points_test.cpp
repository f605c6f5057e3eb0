#include "sweep/picture/run_lines.h"
#include "sweep/picture/run_points.h"
#include "tests/support/rows.h"

#include <QTest>

#include <algorithm>
#include <cmath>

Q_DECLARE_METATYPE(SweepTexts)
Q_DECLARE_METATYPE(RowTexts)

namespace
{
RunPoints listOf(const QVector<RowTexts>& rows)
{
    return RunPoints::ofTable(
        rows.size(), [&](int row) { return rows.at(row); }, "-5");
}

/// Dwell times of 10, 20 and 30 µs, and one of none between the last two.
RunPoints unevenList()
{
    return listOf(
        {{"1 000", "0", "10"}, {"2 000", "1", "20"}, {"9 000", "2", "0"}, {"3 000", "3", "30"}});
}
} // namespace

class RunPointsTest : public QObject
{
    Q_OBJECT

private slots:
    void sweeps_data()
    {
        testColumns<SweepTexts, int, double, double, double>("texts", "number", "frequencyHz",
                                                             "powerDbm", "totalUs");
        const SweepTexts rising{false, "-3.5", "1 000 000", "2 000 000", "1 001", "1 000"};
        testRow("first", rising, 1, 1e6, -3.5, 1001e3);
        testRow("middle", rising, 501, 1.5e6, -3.5, 1001e3);
        testRow("last", rising, 1001, 2e6, -3.5, 1001e3);
        const SweepTexts power{true, "5 000 000", "10", "- 100", "3", "0.5"};
        testRow("power falls", power, 2, 5e6, -45.0, 1.5);
        const SweepTexts one{false, "0", "1 000", "9 000", "1", "7"};
        testRow("one point stays at the start", one, 1, 1e3, 0.0, 7.0);
        const SweepTexts huge{false, "0", "0", "999 999 999", "1 000 000 000", "1 000"};
        testRow("a thousand million points", huge, 500000001, 5e8, 0.0, 1e12);
    }
    void sweeps()
    {
        QFETCH(SweepTexts, texts);
        QFETCH(int, number);
        const RunPoints points = RunPoints::ofSweep(texts);
        QTEST(points.point(number).frequencyHz, "frequencyHz");
        QTEST(points.point(number).powerDbm, "powerDbm");
        QTEST(points.totalUs(), "totalUs");
    }

    void refusedSweeps_data()
    {
        testColumns<SweepTexts>("texts");
        testRow("no start", SweepTexts{false, "0", "", "2", "3", "4"});
        testRow("no number", SweepTexts{false, "0", "1", "2 Hz", "3", "4"});
        testRow("decimal comma", SweepTexts{false, "0,5", "1", "2", "3", "4"});
        testRow("not finite", SweepTexts{false, "0", "1", "inf", "3", "4"});
        testRow("beyond anything", SweepTexts{false, "0", "1", "1e300", "3", "4"});
        testRow("no points", SweepTexts{false, "0", "1", "2", "0", "4"});
        testRow("half a point", SweepTexts{false, "0", "1", "2", "2.5", "4"});
        testRow("too many points", SweepTexts{false, "0", "1", "2", "1 000 000 001", "4"});
        testRow("no dwell", SweepTexts{false, "0", "1", "2", "3", " "});
    }
    void refusedSweeps()
    {
        QFETCH(SweepTexts, texts);
        const RunPoints points = RunPoints::ofSweep(texts);
        QVERIFY(points.isEmpty());
        QCOMPARE(points.totalUs(), 0.0);
        QCOMPARE(points.pointAt(5.0), 0);
        QVERIFY(runLines(points, RunQuantity::Frequency, 0.0, 1.0, 100).isEmpty());
    }

    void cells()
    {
        const RunPoints points =
            listOf({{"1 234 567", "-1.5", "2 000"}, {"", " ", ""}, {"x", "0,5", "y"}});
        const auto cellsOf = [&](int number) {
            const RunPoint point = points.point(number);
            return QVector<double>{point.frequencyHz, point.powerDbm, point.dwellUs};
        };
        QCOMPARE(cellsOf(1), QVector<double>({1234567.0, -1.5, 2000.0}));
        QCOMPARE(cellsOf(2), QVector<double>({1000.0, -5.0, 1000.0}));
        QVERIFY(std::isnan(points.point(3).frequencyHz) && std::isnan(points.point(3).powerDbm));
        QCOMPARE(points.totalUs(), 3000.0);
    }

    void wrongPoints_data()
    {
        testColumns<QVector<RowTexts>, int>("rows", "firstWrong");
        const RowTexts right{"1 000", "0", "100"};
        testRow("none", QVector<RowTexts>{right, right}, 0);
        testRow("unreadable", QVector<RowTexts>{right, {"a", "0", "100"}, {"", "a", ""}}, 2);
        testRow("zero hertz", QVector<RowTexts>{{"0", "0", "100"}}, 1);
        testRow("negative dwell", QVector<RowTexts>{right, right, {"1", "0", "-5"}}, 3);
        testRow("no time", QVector<RowTexts>{right, {"1", "0", "0"}}, 2);
    }
    void wrongPoints()
    {
        QFETCH(QVector<RowTexts>, rows);
        QTEST(listOf(rows).firstWrong(), "firstWrong");
        const RunPoints throughZero =
            RunPoints::ofSweep({false, "0", "1 000", "-1 000", "21", "1"});
        QCOMPARE(throughZero.firstWrong(), 11);
    }

    void times_data()
    {
        testColumns<double, int>("elapsedUs", "number");
        testRow("before", -1.0, 1);
        testRow("end of the first", 9.999, 1);
        testRow("second", 10.0, 2);
        testRow("over the one without time", 30.0, 4);
        testRow("end", 60.0, 4);
        testRow("long after", 1e12, 4);
    }
    void times()
    {
        QFETCH(double, elapsedUs);
        QTEST(unevenList().pointAt(elapsedUs), "number");
    }

    /// Rounding must not make a point late.
    void everyStartIsReached()
    {
        for (const char* dwell : {"0.1", "0.3", "7", "1234.567"}) {
            const RunPoints points = RunPoints::ofSweep({false, "0", "1", "2", "5000", dwell});
            for (int number = 1; number <= points.count(); ++number)
                QCOMPARE(points.pointAt(points.startUs(number)), number);
        }
    }

    void visiblePoints_data()
    {
        testColumns<double, double, int, int>("fromUs", "toUs", "first", "last");
        testRow("all", 0.0, 60.0, 1, 4);
        testRow("within one", 12.0, 13.0, 2, 2);
        testRow("the one without time", 29.0, 31.0, 2, 4);
        testRow("at its moment", 30.0, 30.0, 2, 4);
        testRow("after", 61.0, 70.0, 1, 0);
    }
    void visiblePoints()
    {
        QFETCH(double, fromUs);
        QFETCH(double, toUs);
        const PointRange range = unevenList().pointsBetween(fromUs, toUs);
        QTEST(range.first, "first");
        QTEST(range.last, "last");
    }

    void linesKeepEveryExtreme()
    {
        const auto row = [](int index) {
            return RowTexts{index == 77777 ? "18 000 000 000" : "1 000 000", "0", "100"};
        };
        const RunPoints points = RunPoints::ofTable(100000, row, "-5");
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

    void linesHaveGaps()
    {
        const RunPoints points =
            listOf({{"1", "0", "5"}, {"1", "0", "5"}, {"1", "?", "5"}, {"1", "2", "5"}});
        const QVector<QPointF> before = {{0, 0}, {5, 0}, {10, 0}};
        const QVector<QPointF> after = {{15, 2}, {20, 2}};
        const QVector<QPolygonF> expected = {before, after};
        QCOMPARE(runLines(points, RunQuantity::Power, 0.0, 20.0, 100), expected);
        QCOMPARE(runLines(points, RunQuantity::Frequency, 0.0, 20.0, 100).size(), 1);
    }

    void linesOfEnormousSweeps()
    {
        const RunPoints points =
            RunPoints::ofSweep({false, "0", "1 000", "2 000", "1 000 000 000", "1"});
        const QVector<QPolygonF> lines = runLines(points, RunQuantity::Frequency, 0.0, 1e9, 400);
        QCOMPARE(lines.size(), 1);
        QCOMPARE(lines.first().first().y(), 1000.0);
        QCOMPARE(lines.first().last().y(), 2000.0);
    }
};

QTEST_MAIN(RunPointsTest)
#include "run_points_test.moc"
