#include "ui/anim_label.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>

void animLabel::start(int milliseconds)
{
    // The effect takes an older one and its animation with it; at rest there is none to pay for.
    auto* effect = new QGraphicsOpacityEffect(this);
    setGraphicsEffect(effect);
    auto* fade = new QPropertyAnimation(effect, "opacity", effect);
    fade->setDuration(milliseconds);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    connect(fade, &QAbstractAnimation::finished, effect, &QObject::deleteLater);
    fade->start();
}
