#include "link/pause.h"

#include <QEventLoop>
#include <QTimer>

Pauses& pauses()
{
    static Pauses all;
    return all;
}

bool pause(int pauseMs)
{
    // When the program ends, the loop returns another code than its own.
    constexpr int elapsed = 0x4B4C56;
    QEventLoop loop;
    pauses().totalMs += pauseMs;
    const int takenMs = static_cast<int>(pauseMs * pauses().share);
    QTimer::singleShot(takenMs, Qt::PreciseTimer, &loop, [&loop] {
        // Else the end of the program in this very turn would be forgotten.
        if (loop.isRunning())
            loop.exit(elapsed);
    });
    ++pauses().running;
    const int code = loop.exec();
    --pauses().running;
    return code == elapsed;
}
