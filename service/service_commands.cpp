#include "service/service_commands.h"

#include "link/scpi_session.h"
#include "numbers/number_text.h"
#include "service/service_panel.h"

#include <QLineEdit>

namespace
{
const QString dacCommand = QStringLiteral("MEM:DAC ");
const QString dacQuery = QStringLiteral("MEM:DAC?");
const QString temperatureQuery = QStringLiteral("TEMP?");
} // namespace

ServiceCommands::ServiceCommands(ScpiSession& session, service& panel, QObject* parent)
    : QObject(parent), m_session(session), m_panel(panel)
{
}

void ServiceCommands::initial_service()
{
    readDac();
    readTemperature();
}

void ServiceCommands::readDac()
{
    if (!m_session.isConnected())
        return;
    const QString reply = m_session.query(dacQuery);
    if (m_session.lastFailed())
        emit statusMessage(tr("error getting dac"));
    else
        m_panel.showDac(withoutBlanks(reply).remove(QLatin1Char('\n')));
}

void ServiceCommands::readTemperature()
{
    if (!m_session.isConnected())
        return;
    const QString reply = m_session.read(temperatureQuery);
    if (m_session.lastFailed())
        emit statusMessage(tr("error getting temperature"));
    else
        m_panel.showTemperature(toNumber(reply));
}

void ServiceCommands::sendCommandRefOsc()
{
    if (m_session.isConnected())
        m_session.writeChecked(dacCommand + m_panel.referenceDac().text());
}

void ServiceCommands::on_REF_OSC_returnPressed()
{
    sendCommandRefOsc();
}
