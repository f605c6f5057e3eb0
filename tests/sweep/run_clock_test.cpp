#include "sweep/picture/run_clock.h"
#include "tests/support/rows.h"

#include <QSignalSpy>
#include <QTest>

namespace
{
/// Points of the same dwell.
RunPoints points(int count, int dwellUs)
{
    return RunPoints::ofSweep(
        {false, "0", "1 000", "2 000", QString::number(count), QString::number(dwellUs)});
}
} // namespace

class RunClockTest : public QObject
{
    Q_OBJECT

private slots:
    void singleRunEndsAtTheLastPoint();
    void continuousRunBeginsAnew();
    void stopsInTheMiddle();
    void repeatsWhenToldSo();
    void steps();
    void runsOnFromWhereItWasStepped();
    void runsWithoutTime_data();
    void runsWithoutTime();

private:
    static bool isTicking(const RunClock& clock)
    {
        return clock.findChild<const QTimer*>()->isActive();
    }
};

void RunClockTest::singleRunEndsAtTheLastPoint()
{
    RunClock clock;
    QSignalSpy reached(&clock, &RunClock::pointReached);
    QSignalSpy times(&clock, &RunClock::timeChanged);
    clock.start(points(4, 120000), RunClock::Pace::Free, false);
    QTRY_COMPARE_WITH_TIMEOUT(clock.reached(), 4, 5000);
    QTRY_VERIFY_WITH_TIMEOUT(!isTicking(clock), 5000);
    QVERIFY(times.size() <= 7);
    for (int i = 1; i < reached.size(); ++i)
        QVERIFY(reached.at(i).first().toInt() > reached.at(i - 1).first().toInt());
    QCOMPARE(reached.first().first().toInt(), 1);
    QCOMPARE(times.last().at(0).toDouble(), 480.0);
    QCOMPARE(times.last().at(1).toDouble(), 480.0);
    QCOMPARE(clock.reached(), 4);
}

void RunClockTest::continuousRunBeginsAnew()
{
    RunClock clock;
    bool beganAnew = false;
    double longestMs = 0.0;
    double latestMs = 0.0;
    connect(&clock, &RunClock::timeChanged, this, [&](double elapsedMs, double totalMs) {
        beganAnew = beganAnew || elapsedMs < latestMs;
        latestMs = elapsedMs;
        longestMs = std::max(longestMs, elapsedMs / totalMs);
    });
    clock.start(points(3, 80000), RunClock::Pace::Free, true);
    QTRY_VERIFY_WITH_TIMEOUT(beganAnew, 5000);
    QVERIFY(longestMs < 1.0);
    QVERIFY(isTicking(clock));

    // The pass that goes on is the last one.
    clock.setContinuous(false);
    QTRY_VERIFY_WITH_TIMEOUT(!isTicking(clock), 5000);
    QCOMPARE(clock.reached(), 3);
    QCOMPARE(latestMs, 240.0);
}

void RunClockTest::stopsInTheMiddle()
{
    RunClock clock;
    QVERIFY(!isTicking(clock));
    clock.start(points(100, 1000000), RunClock::Pace::Free, true);
    QVERIFY(isTicking(clock));
    QCOMPARE(clock.reached(), 1);
    QSignalSpy reached(&clock, &RunClock::pointReached);
    clock.stop();
    QVERIFY(!isTicking(clock));
    QCOMPARE(reached.size(), 1);
    QCOMPARE(reached.first().first().toInt(), 0);
    clock.moveTo(5);
    clock.setPace(RunClock::Pace::Stepped);
    clock.setContinuous(false);
    clock.stop();
    QCOMPARE(reached.size(), 1);
}

void RunClockTest::repeatsWhenToldSo()
{
    RunClock clock;
    clock.start(points(2, 1), RunClock::Pace::Free, false);
    QTRY_COMPARE_WITH_TIMEOUT(isTicking(clock), false, 5000);
    clock.setContinuous(true);
    QVERIFY(isTicking(clock));
}

void RunClockTest::steps()
{
    RunClock clock;
    QSignalSpy times(&clock, &RunClock::timeChanged);
    clock.start(points(4, 1000), RunClock::Pace::Stepped, true);
    QVERIFY(!isTicking(clock));
    QCOMPARE(clock.reached(), 0);
    const struct {
        int step;
        int reached;
    } steps[] = {{1, 1}, {1, 2}, {-1, 1}, {-1, 1}, {2, 3}, {1, 4}, {1, 4}};
    for (const auto& each : steps) {
        clock.stepBy(each.step);
        QCOMPARE(clock.reached(), each.reached);
        QCOMPARE(times.last().at(0).toDouble(), each.reached - 1.0);
    }
    clock.moveTo(2);
    QCOMPARE(clock.reached(), 2);
    clock.moveTo(99);
    QCOMPARE(clock.reached(), 4);
    // A stepped run does not advance by itself, and the point reached by external triggers is not
    // known.
    clock.setPace(RunClock::Pace::Unknown);
    QCOMPARE(clock.reached(), 0);
    clock.stepBy(1);
    QCOMPARE(clock.reached(), 0);
}

void RunClockTest::runsOnFromWhereItWasStepped()
{
    RunClock clock;
    QSignalSpy times(&clock, &RunClock::timeChanged);
    clock.start(points(10, 60000000), RunClock::Pace::Stepped, false);
    clock.moveTo(7);
    clock.setPace(RunClock::Pace::Free);
    QVERIFY(isTicking(clock));
    QCOMPARE(clock.reached(), 7);
    QVERIFY(times.last().at(0).toDouble() >= 360000.0);
    clock.setPace(RunClock::Pace::Stepped);
    QVERIFY(!isTicking(clock));
    clock.stepBy(1);
    QCOMPARE(clock.reached(), 8);
}

void RunClockTest::runsWithoutTime_data()
{
    testColumns<int, bool>("count", "isContinuous");
    testRow("no points", 0, false);
    testRow("no points, continuous", 0, true);
    testRow("no dwell", 5, false);
    testRow("no dwell, continuous", 5, true);
}

void RunClockTest::runsWithoutTime()
{
    QFETCH(int, count);
    QFETCH(bool, isContinuous);
    RunClock clock;
    clock.start(points(count, 0), RunClock::Pace::Free, isContinuous);
    QVERIFY(!isTicking(clock));
    QCOMPARE(clock.reached(), count);
}

QTEST_MAIN(RunClockTest)
#include "run_clock_test.moc"
