#include "app/instrument_display.h"

#include "connection/connection.h"
#include "link/scpi_session.h"
#include "service/about_box.h"
#include "service/service_panel.h"
#include "ui/anim_label.h"
#include "ui/instrument_text.h"

#include <QVariant>

namespace
{
constexpr int deviceWidthConnected = 171;
constexpr int deviceWidthDisconnected = 131;
constexpr int serialDigitsShown = 4;
constexpr int appearMs = 300;
constexpr char connectedProperty[] = "connected";
} // namespace

InstrumentDisplay::InstrumentDisplay(const Widgets& widgets, Form& about, service& panel,
                                     const ScpiSession& session, const Connection& connection)
    : m_ui(widgets), m_about(about), m_panel(panel)
{
    connect(&connection, &Connection::identified, this, &InstrumentDisplay::show);
    connect(&connection, &Connection::calibrationDue, &about, &Form::setCalibrationDue);
    connect(&connection, &Connection::ready, this, [this] { light(true); });
    connect(&connection, &Connection::disconnected, this, &InstrumentDisplay::forget);
    connect(&session, &ScpiSession::error329Seen, this, &InstrumentDisplay::show329);
    connect(&session, &ScpiSession::error329Gone, &m_ui.error329, &QWidget::hide);
    forget();
}

void InstrumentDisplay::show(const InstrumentIdentity& identity)
{
    m_name = instrumentText(identity.model + QLatin1Char(' ') +
                            identity.serial.right(serialDigitsShown));
    showDevice();
    m_about.setSerial(identity.serial);
    m_about.setFirmware(identity.firmware);
    m_panel.showInstrument(identity.serial, identity.firmware);
}

void InstrumentDisplay::forget()
{
    m_name.clear();
    showDevice();
    m_about.empty();
    m_panel.forgetInstrument();
    m_ui.error329.hide();
    light(false);
}

void InstrumentDisplay::showDevice()
{
    m_ui.device.setFixedWidth(m_name.isEmpty() ? deviceWidthDisconnected : deviceWidthConnected);
    retranslate();
}

void InstrumentDisplay::retranslate()
{
    m_ui.device.setText(m_name.isEmpty() ? tr("Disconnected") : m_name);
}

/// Colours the controls that show whether an instrument is connected.
void InstrumentDisplay::light(bool isConnected)
{
    m_ui.device.setProperty(connectedProperty, isConnected);
    m_ui.lamp.setProperty(connectedProperty, isConnected);
}

void InstrumentDisplay::show329(const QString& message)
{
    if (m_ui.error329.isHidden())
        m_ui.error329.start(appearMs);
    m_ui.error329.setToolTip(instrumentText(message));
    m_ui.error329.show();
}
