#include "ui/status_offer.h"

#include "ui/describe.h"

#include <QEvent>

StatusOffer::StatusOffer(const char* name, const Words& caption, const Words& toolTip,
                         QWidget* parent)
    : QPushButton(parent), m_caption(caption), m_toolTip(toolTip)
{
    // No taller than the line: showing and hiding it moves nothing.
    constexpr int lineHeight = 24;
    setObjectName(QLatin1String(name));
    setMaximumHeight(lineHeight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    hide();
    retranslate();
}

void StatusOffer::retranslate()
{
    setText(m_caption());
    describe(this, text(), m_toolTip());
}

void StatusOffer::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QPushButton::changeEvent(event);
}
