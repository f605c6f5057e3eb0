#include "link/turn.h"

#include "link/activity.h"
#include "link/pause.h"

Turn::Turn(QObject* parent) : QObject(parent)
{
    constexpr int lookMs = 50;
    m_look.setInterval(lookMs);
    connect(&m_look, &QTimer::timeout, this, [this] {
        if (!isNow())
            return;
        m_look.stop();
        emit due();
    });
}

bool Turn::isNow()
{
    return pauses().running == 0 && Activities::global().texts().isEmpty();
}
