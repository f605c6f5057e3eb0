#include "app/output_display.h"

#include "link/scpi_session.h"

#include <QAbstractButton>

OutputDisplay::OutputDisplay(QAbstractButton& button, QWidget& lamp, const ScpiSession& session)
    : m_button(button), m_lamp(lamp), m_session(session)
{
    outputSent();
}

void OutputDisplay::outputSent()
{
    m_lamp.setEnabled(m_session.isConnected() && m_button.isChecked());
}

void OutputDisplay::forgetInstrument(bool wasConnected)
{
    if (wasConnected)
        m_button.setChecked(false);
    outputSent();
}
