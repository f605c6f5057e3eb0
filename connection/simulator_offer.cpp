#include "connection/simulator_offer.h"

#include <QEvent>

SimulatorOffer::SimulatorOffer(QWidget* parent) : QPushButton(parent)
{
    // No taller than the line: showing and hiding it moves nothing.
    constexpr int lineHeight = 24;
    setObjectName(QStringLiteral("try_simulator"));
    setMaximumHeight(lineHeight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    hide();
    retranslate();
}

void SimulatorOffer::retranslate()
{
    setText(tr("Simulated instrument"));
    setAccessibleName(text());
    setToolTip(tr("Work with a simulated instrument; the menu switches back to a real one"));
}

void SimulatorOffer::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QPushButton::changeEvent(event);
}
