#include "app/simulator_switch.h"

#include "app/window_menu.h"
#include "connection/connection.h"
#include "connection/instrument_source.h"
#include "service/driver_check.h"
#include "service/firmware_update.h"
#include "ui/status_offer.h"
#include "ui_mainwindow.h"

SimulatorSwitch::SimulatorSwitch(InstrumentSource& source, Connection& connection,
                                 FirmwareUpdate& update, const Ui::MainWindow& form,
                                 WindowMenu& menu)
    : m_source(source), m_connection(connection), m_update(update), m_form(form), m_menu(menu)
{
    auto* offer = new StatusOffer(
        "try_simulator", [] { return tr("Simulated instrument"); },
        [] { return tr("Work with a simulated instrument; the menu switches back to a real one"); },
        form.centralwidget);
    form.status_layout->addWidget(offer);
    QWidget::setTabOrder(form.closeWindow, offer);
    connect(&connection, &Connection::attemptStarted, offer, &QWidget::hide);
    connect(&connection, &Connection::nothingFound, offer,
            [this, offer] { offer->setVisible(!m_source.isSimulated()); });
    connect(offer, &QAbstractButton::clicked, this, [this] { simulate(true); });
    connect(&menu, &WindowMenu::simulatorChosen, this, &SimulatorSwitch::simulate);
    connect(&connection, &Connection::identified, this, &SimulatorSwitch::print);
    show();
}

void SimulatorSwitch::connectAtStart()
{
    if (m_source.isSimulated() || checkDriver())
        m_form.connect->click();
}

void SimulatorSwitch::simulate(bool isSimulated)
{
    m_update.stop();
    m_connection.leave();
    m_source.simulate(isSimulated);
    show();
    connectAtStart();
}

void SimulatorSwitch::show()
{
    m_form.label_simulated->setVisible(m_source.isSimulated());
    m_menu.showSimulated(m_source.isSimulated());
}

/// For users who try the program from a terminal.
void SimulatorSwitch::print(const InstrumentIdentity& identity) const
{
    if (m_source.isSimulated())
        qInfo("Connected to %s, serial %s, firmware %s", qUtf8Printable(identity.model),
              qUtf8Printable(identity.serial), qUtf8Printable(identity.firmware));
}
