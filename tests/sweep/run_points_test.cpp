#include "sweep/picture/run_lines.h"
#include "sweep/picture/run_points.h"

#include <QTest>

#include <algorithm>
#include <cmath>

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
    void sweeps()
    {
        const auto check = [](const SweepTexts& texts, int number, double frequencyHz,
                              double powerDbm, double totalUs) {
            const RunPoints points = RunPoints::ofSweep(texts);
            QCOMPARE(points.point(number).frequencyHz, frequencyHz);
            QCOMPARE(points.point(number).powerDbm, powerDbm);
            QCOMPARE(points.totalUs(), totalUs);
        };
        const SweepTexts rising{false, "-3.5", "1 000 000", "2 000 000", "1 001", "1 000"};
        check(rising, 1, 1e6, -3.5, 1001e3);
        check(rising, 501, 1.5e6, -3.5, 1001e3);
        check(rising, 1001, 2e6, -3.5, 1001e3);
        check({true, "5 000 000", "10", "- 100", "3", "0.5"}, 2, 5e6, -45.0, 1.5);
        // One point stays at the start; a thousand million are no trouble.
        check({false, "0", "1 000", "9 000", "1", "7"}, 1, 1e3, 0.0, 7.0);
        check({false, "0", "0", "999 999 999", "1 000 000 000", "1 000"}, 500000001, 5e8, 0.0,
              1e12);
    }

    void refusedSweeps()
    {
        const SweepTexts refused[] = {
            {false, "0", "", "2", "3", "4"},      {false, "0", "1", "2 Hz", "3", "4"},
            {false, "0,5", "1", "2", "3", "4"},   {false, "0", "1", "inf", "3", "4"},
            {false, "0", "1", "1e300", "3", "4"}, {false, "0", "1", "2", "0", "4"},
            {false, "0", "1", "2", "2.5", "4"},   {false, "0", "1", "2", "1 000 000 001", "4"},
            {false, "0", "1", "2", "3", " "},
        };
        for (const SweepTexts& texts : refused) {
            const RunPoints points = RunPoints::ofSweep(texts);
            QVERIFY(points.isEmpty());
            QCOMPARE(points.totalUs(), 0.0);
            QCOMPARE(points.pointAt(5.0), 0);
            QVERIFY(runLines(points, RunQuantity::Frequency, 0.0, 1.0, 100).isEmpty());
        }
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

    void wrongPoints()
    {
        const RowTexts right{"1 000", "+3", "1e+2"};
        QCOMPARE(listOf({right, right}).firstWrong(), 0);
        QCOMPARE(listOf({right, {"a", "0", "100"}, {"", "a", ""}}).firstWrong(), 2);
        QCOMPARE(listOf({{"0", "0", "100"}}).firstWrong(), 1);
        QCOMPARE(listOf({right, right, {"1", "0", "-5"}}).firstWrong(), 3);
        QCOMPARE(listOf({right, {"1", "0", "0"}}).firstWrong(), 2);
        const RunPoints throughZero =
            RunPoints::ofSweep({false, "0", "1 000", "-1 000", "21", "1"});
        QCOMPARE(throughZero.firstWrong(), 11);
    }

    void times()
    {
        for (const auto& [elapsedUs, number] :
             {std::pair(-1.0, 1), {9.999, 1}, {10.0, 2}, {30.0, 4}, {60.0, 4}, {1e12, 4}})
            QCOMPARE(unevenList().pointAt(elapsedUs), number);
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

    void visiblePoints()
    {
        const auto check = [](double fromUs, double toUs, int first, int last) {
            const PointRange range = unevenList().pointsBetween(fromUs, toUs);
            QCOMPARE(range.first, first);
            QCOMPARE(range.last, last);
        };
        check(0.0, 60.0, 1, 4);
        check(12.0, 13.0, 2, 2);
        check(29.0, 31.0, 2, 4);
        check(30.0, 30.0, 2, 4);
        check(61.0, 70.0, 1, 0);
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
