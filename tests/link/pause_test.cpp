#include "link/pause.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

class PauseTest : public QObject
{
    Q_OBJECT

private slots:
    void lastsAndLetsEventsPass()
    {
        bool hasPassed = false;
        QTimer::singleShot(0, [&hasPassed] { hasPassed = true; });
        QElapsedTimer clock;
        clock.start();
        QVERIFY(pause(400));
        QVERIFY(clock.elapsed() >= 400);
        QVERIFY(hasPassed);
        QCOMPARE(pauses().totalMs, 400);
    }

    void endsWithTheProgram()
    {
        bool isWhole = true;
        QTimer::singleShot(0, [&isWhole] {
            QTimer::singleShot(0, &QCoreApplication::quit);
            isWhole = pause(20000);
        });
        QCoreApplication::exec();
        QVERIFY(!isWhole);
    }
};

QTEST_GUILESS_MAIN(PauseTest)
#include "pause_test.moc"
