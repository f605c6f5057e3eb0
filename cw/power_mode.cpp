#include "cw/power_mode.h"

#include "cw/wgt_mode_pow.h"
#include "link/scpi_session.h"

#include <QWidget>

namespace
{
const QString boostOnCommand = QStringLiteral("POW:BOOST ON");
const QString boostOffCommand = QStringLiteral("POW:BOOST OFF");
} // namespace

PowerMode::PowerMode(ScpiSession& session, QWidget& indicator, const WgtModePow& prompt,
                     QObject* parent)
    : QObject(parent), m_session(session), m_indicator(indicator)
{
    // The command is chosen by the indicator as it was.
    connect(&prompt, &WgtModePow::signalSwitchMode, this, &PowerMode::slotCommandSwitchModePow);
    connect(&prompt, &WgtModePow::signalSwitchMode, this, &PowerMode::slotGuiSwitchModePow);
}

bool PowerMode::isModeOn() const
{
    // Not isVisible(): the mode stays on while the window is minimised.
    return !m_indicator.isHidden();
}

void PowerMode::restore()
{
    if (isModeOn())
        setModeMaxPow(true);
}

void PowerMode::setModeMaxPow(bool isOn)
{
    if (!m_session.isConnected())
        return;
    if (isOn)
        m_session.writeChecked(boostOnCommand);
    else
        m_session.switchOffChecked(boostOffCommand);
}

void PowerMode::slotCommandSwitchModePow()
{
    setModeMaxPow(!isModeOn());
}

void PowerMode::slotGuiSwitchModePow()
{
    m_indicator.setHidden(isModeOn());
}
