#include "app/output_display.h"

#include "connection/connection.h"
#include "cw/cw_controls.h"
#include "link/scpi_session.h"

#include <QAbstractButton>

OutputDisplay::OutputDisplay(QAbstractButton& button, QWidget& lamp, const ScpiSession& session,
                             const Connection& connection, const CwControls& cw)
    : m_button(button), m_lamp(lamp), m_session(session)
{
    connect(&cw, &CwControls::outputSent, this, &OutputDisplay::outputSent);
    connect(&connection, &Connection::disconnected, this, &OutputDisplay::forgetInstrument);
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
