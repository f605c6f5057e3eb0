#include "link/pause.h"

#include <QEventLoop>
#include <QTimer>

void pause(int pauseMs)
{
    QEventLoop loop;
    QTimer::singleShot(pauseMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}
