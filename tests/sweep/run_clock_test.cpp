#include "sweep/picture/run_clock.h"
#include "tests/support/rows.h"

#include <QSignalSpy>

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
    void init() { m_clock = std::make_unique<RunClock>(); }

    void singleRunEndsAtTheLastPoint()
    {
        QSignalSpy reached(m_clock.get(), &RunClock::pointReached);
        QSignalSpy times(m_clock.get(), &RunClock::timeChanged);
        m_clock->start(points(4, 120000), RunClock::Pace::Free, false);
        QTRY_COMPARE(m_clock->reached(), 4);
        QTRY_VERIFY(!isTicking());
        QVERIFY(times.size() <= 7);
        for (int i = 1; i < reached.size(); ++i)
            QVERIFY(reached.at(i).first().toInt() > reached.at(i - 1).first().toInt());
        QCOMPARE(reached.first().first().toInt(), 1);
        QCOMPARE(times.last(), QVariantList({480.0, 480.0}));
        // It is repeated when told so.
        m_clock->setContinuous(true);
        QVERIFY(isTicking());
    }

    void continuousRunBeginsAnew()
    {
        bool beganAnew = false;
        double longest = 0.0;
        double latestMs = 0.0;
        connect(m_clock.get(), &RunClock::timeChanged, this, [&](double elapsedMs, double totalMs) {
            beganAnew = beganAnew || elapsedMs < latestMs;
            latestMs = elapsedMs;
            longest = std::max(longest, elapsedMs / totalMs);
        });
        m_clock->start(points(3, 80000), RunClock::Pace::Free, true);
        QTRY_VERIFY(beganAnew);
        QVERIFY(longest < 1.0);
        // The pass that goes on is the last one.
        m_clock->setContinuous(false);
        QTRY_VERIFY(!isTicking());
        QCOMPARE(m_clock->reached(), 3);
        QCOMPARE(latestMs, 240.0);
    }

    void stopsInTheMiddle()
    {
        m_clock->start(points(100, 1000000), RunClock::Pace::Free, true);
        QCOMPARE(m_clock->reached(), 1);
        QSignalSpy reached(m_clock.get(), &RunClock::pointReached);
        m_clock->stop();
        QVERIFY(!isTicking());
        m_clock->moveTo(5);
        m_clock->stop();
        QCOMPARE(reached.size(), 1);
        QCOMPARE(reached.first().first().toInt(), 0);
    }

    void steps()
    {
        QSignalSpy times(m_clock.get(), &RunClock::timeChanged);
        m_clock->start(points(4, 60000000), RunClock::Pace::Stepped, true);
        QVERIFY(!isTicking());
        QCOMPARE(m_clock->reached(), 0);
        const std::pair<int, int> steps[] = {{1, 1}, {1, 2}, {-1, 1}, {-1, 1},
                                             {2, 3}, {1, 4}, {1, 4}};
        for (const auto& [step, reached] : steps) {
            m_clock->stepBy(step);
            QCOMPARE(m_clock->reached(), reached);
            QCOMPARE(times.last().at(0).toDouble(), 60000.0 * (reached - 1));
        }
        m_clock->moveTo(99);
        QCOMPARE(m_clock->reached(), 4);
        m_clock->moveTo(2);
        QCOMPARE(m_clock->reached(), 2);
        // Time goes on from there, and leaves it there.
        m_clock->setPace(RunClock::Pace::Free);
        QVERIFY(isTicking());
        QCOMPARE(m_clock->reached(), 2);
        QVERIFY(times.last().at(0).toDouble() >= 60000.0);
        m_clock->setPace(RunClock::Pace::Stepped);
        QVERIFY(!isTicking());
        m_clock->stepBy(1);
        QCOMPARE(m_clock->reached(), 3);
        // The point reached by external triggers is not known.
        m_clock->setPace(RunClock::Pace::Unknown);
        QCOMPARE(m_clock->reached(), 0);
        m_clock->stepBy(1);
        QCOMPARE(m_clock->reached(), 0);
    }

    void runsWithoutTime()
    {
        for (const auto& [count, isContinuous] : {std::pair(0, true), {5, false}, {5, true}}) {
            m_clock->start(points(count, 0), RunClock::Pace::Free, isContinuous);
            QVERIFY(!isTicking());
            QCOMPARE(m_clock->reached(), count);
        }
    }

private:
    bool isTicking() const { return m_clock->findChild<const QTimer*>()->isActive(); }

    std::unique_ptr<RunClock> m_clock;
};

QTEST_MAIN(RunClockTest)
#include "run_clock_test.moc"
