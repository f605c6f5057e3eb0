#include "app/output_display.h"

#include "connection/connection.h"
#include "cw/cw_controls.h"
#include "link/scpi_session.h"

#include <QAbstractButton>
#include <QLabel>

OutputDisplay::OutputDisplay(QAbstractButton& button, QLabel& lamp, const ScpiSession& session,
                             const Connection& connection, const CwControls& cw)
    : m_button(button), m_lamp(lamp), m_session(session), m_word(lamp.text())
{
    connect(&cw, &CwControls::outputSent, this, &OutputDisplay::outputSent);
    connect(&connection, &Connection::disconnected, this, &OutputDisplay::forgetInstrument);
    outputSent();
}

void OutputDisplay::outputSent()
{
    m_isDoubted = false;
    m_lamp.setEnabled(m_session.isConnected() && m_button.isChecked());
    m_lamp.setText(m_word);
}

void OutputDisplay::doubt()
{
    m_isDoubted = true;
    // Lit: it may be on.
    m_lamp.setEnabled(true);
    m_lamp.setText(QStringLiteral("?"));
}

void OutputDisplay::retranslate()
{
    m_word = m_lamp.text();
    if (m_isDoubted)
        doubt();
}

void OutputDisplay::forgetInstrument(bool wasConnected)
{
    if (wasConnected)
        m_button.setChecked(false);
    outputSent();
}
