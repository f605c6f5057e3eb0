#include "ui/anim_label.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>

void animLabel::start(int milliseconds)
{
    // Setting the effect deletes an older one and its animation; without a fade no effect costs
    // drawing time.
    auto* effect = new QGraphicsOpacityEffect(this);
    setGraphicsEffect(effect);
    auto* fade = new QPropertyAnimation(effect, "opacity", effect);
    fade->setDuration(milliseconds);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    connect(fade, &QAbstractAnimation::finished, effect, &QObject::deleteLater);
    fade->start();
}
