#include "link/pause.h"

#include <QEventLoop>
#include <QTimer>

bool pause(int pauseMs)
{
    // Ended from outside, the loop returns another code than its own.
    constexpr int elapsed = 0x4B4C56;
    QEventLoop loop;
    QTimer::singleShot(pauseMs, Qt::PreciseTimer, &loop, [&loop] { loop.exit(elapsed); });
    return loop.exec() == elapsed;
}
