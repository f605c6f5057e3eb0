#include "app/main_window.h"

#include "app/error_chip.h"
#include "app/escape_order.h"
#include "app/exclusions.h"
#include "app/output_display.h"
#include "app/output_off.h"
#include "app/panel_profiles.h"
#include "app/run_display.h"
#include "app/side_panels.h"
#include "app/status_line.h"
#include "app/window_menu.h"
#include "connection/connection_obstacle.h"
#include "connection/instrument_source.h"
#include "connection/simulator_offer.h"
#include "link/instrument_limits.h"
#include "modulation/generator.h"
#include "modulation/lf_generator_commands.h"
#include "modulation/modulat.h"
#include "modulation/modulation_commands.h"
#include "panel/accepted_watch.h"
#include "panel/cw_controls.h"
#include "panel/entry_notice.h"
#include "panel/keypad.h"
#include "panel/power_guard.h"
#include "panel/power_mode.h"
#include "panel/wgt_mode_pow.h"
#include "profiles/open_save_profile.h"
#include "service/about_box.h"
#include "service/firmware_dialog.h"
#include "service/firmware_update.h"
#include "service/service_commands.h"
#include "service/service_panel.h"
#include "sweep/list_panel.h"
#include "sweep/list_transfer.h"
#include "sweep/run_picture.h"
#include "sweep/sweep_commands.h"
#include "sweep/sweep_group.h"
#include "sweep/trigger_commands.h"
#include "ui/language.h"
#include "ui_mainwindow.h"

#include <QApplication>

// Who hears whom: the form, the side panels, the operations and the connection, one function each.

// Only after the form: connectSlotsByName takes the first child of a name, and panels share names
// with the form.
void MainWindow::setUpPanels()
{
    m_modulation = new Modulat(this);
    m_list = new List(this);
    m_generator = new generator(this);
    m_service = new service(this);

    m_sidePanels = std::make_unique<SidePanels>(this, m_ui->drawer);
    m_sidePanels->add(m_modulation, m_ui->open_mod);
    m_sidePanels->add(m_list, m_ui->open_list);
    m_sidePanels->add(m_generator, m_ui->open_gener);
    m_sidePanels->add(m_service, m_ui->service);

    connect(m_modulation, &SidePanel::hide_, this, &MainWindow::closeFromModulation);
    connect(m_list, &SidePanel::hide_, this, &MainWindow::closeFromList);
    connect(m_generator, &SidePanel::hide_, this, &MainWindow::closeFromGenerator);
    connect(m_service, &SidePanel::hide_, this, &MainWindow::service_close);
    connect(this, &MainWindow::service_animate, this, &MainWindow::animate_move_service);
    connect(m_sidePanels.get(), &SidePanels::allMoved, this, &MainWindow::allow_move);
    connect(m_sidePanels.get(), &SidePanels::opened, this, &MainWindow::refreshPanel);
}

void MainWindow::setUpMenu()
{
    auto* menu = new WindowMenu(m_language->code(), themeSetting(), m_powerGuard->jumpDb(), this);
    // The shortcuts work without the menu being open.
    addActions(menu->actions());
    m_ui->menuButton->setMenu(menu);
    connect(menu, &WindowMenu::helpChosen, this, &MainWindow::toHelp);
    connect(menu, &WindowMenu::aboutChosen, m_about.get(), &Form::showAbout);
    connect(menu, &WindowMenu::quitChosen, this, &MainWindow::close);
    connect(menu, &WindowMenu::languageChosen, this, &MainWindow::chooseLanguage);
    connect(menu, &WindowMenu::themeChosen, this, &MainWindow::chooseTheme);
    connect(menu, &WindowMenu::simulatorChosen, this, &MainWindow::simulate);
    connect(menu, &WindowMenu::jumpChosen, m_powerGuard.get(), &PowerGuard::setJumpDb);
    connect(menu, &WindowMenu::ceilingWanted, this, &MainWindow::askCeiling);
    const auto showCeiling = [this, menu] { menu->showCeiling(m_powerGuard->ceilingDbm()); };
    connect(m_powerGuard.get(), &PowerGuard::ceilingChanged, menu, showCeiling);
    showCeiling();
}

void MainWindow::wireStatusLine()
{
    m_status = std::make_unique<StatusLine>(*m_ui->status);
    connect(m_powerGuard.get(), &PowerGuard::statusMessage, m_status.get(),
            &StatusLine::showMessage);
    connect(&m_connection, &Connection::failed, m_status.get(), &StatusLine::showFailure);
    connect(&m_connection, &Connection::lost, m_status.get(), &StatusLine::showLoss);
    connect(&m_connection, &Connection::attemptStarted, m_status.get(), &StatusLine::forgetFailure);
    connect(&m_connection, &Connection::attemptStarted, m_status.get(),
            &StatusLine::forgetInstrument);
    connect(&m_connection, &Connection::ready, m_status.get(), &StatusLine::forgetFault);
    m_errors = std::make_unique<ErrorChip>(*m_ui->errors);
    connect(&m_session, &ScpiSession::errorReported, this, [this](const InstrumentError& error) {
        m_errors->count();
        m_status->showInstrumentMessage(errorWords(error));
    });
    connect(&m_connection, &Connection::disconnected, m_status.get(),
            &StatusLine::forgetInstrument);
    connect(&m_connection, &Connection::statusMessage, m_status.get(),
            &StatusLine::showInstrumentMessage);
    connect(&EntryNotice::global(), &EntryNotice::refused, m_status.get(),
            &StatusLine::showMessage);
}

void MainWindow::wireConnection()
{
    connect(&m_search, &SearchKLV::sendData, this, &MainWindow::showKLVDevice);
    connect(&m_search, &SearchKLV::finish, this, &MainWindow::finishVisaSearch);
    connect(&m_search, &SearchKLV::error, this, &MainWindow::failVisaSearch);
    connect(&m_chooser, &GuiListKLV::sendAddress, this, &MainWindow::slot_connect);

    m_connection.setNeighbour(this);
    m_connection.setObstacle(
        [this] { return connectionObstacle(m_visa, m_session, !m_source->isSimulated()); });
    connect(&m_connection, &Connection::buttonShouldBe, m_ui->connect,
            &QAbstractButton::setChecked);
    connect(&m_connection, &Connection::buttonShouldBeClicked, m_ui->connect,
            &QAbstractButton::click);
    connect(&m_connection, &Connection::titleChanged, this, &MainWindow::setWindowTitle);
    connect(&m_connection, &Connection::identified, this, &MainWindow::showIdentity);
    connect(&m_connection, &Connection::calibrationDue, m_about.get(), &Form::setCalibrationDue);
    connect(&m_connection, &Connection::refused, this, &MainWindow::reportError);
    connect(&m_connection, &Connection::ready, this, &MainWindow::showReady);
    connect(&m_connection, &Connection::pushed, this, &QWidget::activateWindow);
    connect(&m_connection, &Connection::disconnected, m_powerGuard.get(), &PowerGuard::cancel);
    connect(&m_connection, &Connection::disconnected, this, &MainWindow::showDisconnected);
    connect(&m_session, &ScpiSession::error329Seen, this, &MainWindow::showIndicator329);
    connect(&m_session, &ScpiSession::error329Gone, m_ui->label_329, &QWidget::hide);
}

void MainWindow::wireCwControls()
{
    m_cw = std::make_unique<CwControls>(m_session, InstrumentLimits::global(), *m_powerGuard,
                                        CwControls::Widgets{*m_ui->FREQ, *m_ui->POW, *m_ui->Output,
                                                            *m_ui->ROSC, *m_ui->ROSC_FREQ,
                                                            *m_ui->label_328, *m_ui->label_ExtRef});
    connect(m_cw.get(), &CwControls::statusMessage, m_status.get(),
            &StatusLine::showInstrumentMessage);
    m_outputDisplay = std::make_unique<OutputDisplay>(*m_ui->Output, *m_ui->label_RF, m_session);
    connect(m_cw.get(), &CwControls::outputSent, m_outputDisplay.get(), &OutputDisplay::outputSent);
    connect(&m_connection, &Connection::disconnected, m_outputDisplay.get(),
            &OutputDisplay::forgetInstrument);
    m_outputOff = std::make_unique<OutputOff>(*m_ui->Output);
    connect(m_outputOff.get(), &OutputOff::statusMessage, m_status.get(),
            &StatusLine::showInstrumentMessage);
    // It is checked while there is a connection.
    connect(&m_connection, &Connection::buttonShouldBe, m_outputOff.get(),
            &OutputOff::setConnected);
    m_keypad->setPowerGuard(*m_powerGuard);
    connect(m_ui->key_FREQ, &QAbstractButton::clicked, m_keypad,
            [this] { m_keypad->openFor(m_ui->FREQ); });
    connect(m_ui->key_POW, &QAbstractButton::clicked, m_keypad,
            [this] { m_keypad->openFor(m_ui->POW); });
}

void MainWindow::wirePowerMode()
{
    m_powerMode = std::make_unique<PowerMode>(m_session, *m_ui->wgtMaxPow);
    auto* prompt = new WgtModePow(*m_ui->butSetModePow, this);
    connect(m_ui->butSetModePow, &QAbstractButton::clicked, prompt, &WgtModePow::open);
    // The command is chosen by the indicator as it was.
    connect(prompt, &WgtModePow::signalSwitchMode, m_powerMode.get(),
            &PowerMode::slotCommandSwitchModePow);
    connect(prompt, &WgtModePow::signalSwitchMode, m_powerMode.get(),
            &PowerMode::slotGuiSwitchModePow);
}

// AM, FM, PM, pulse and the LF generator share the instrument's modulation source.
void MainWindow::wireModulation()
{
    const InstrumentLimits& limits = InstrumentLimits::global();
    m_modulationCommands = std::make_unique<ModulationCommands>(
        m_session, limits, *m_modulation,
        ModulationCommands::Indicators{*m_ui->label_AmPmFm, *m_ui->label_PULM});
    m_lfGenerator =
        std::make_unique<LfGeneratorCommands>(m_session, limits, *m_generator, *m_ui->label_Gener);
    connect(m_modulation, &Modulat::keypadRequested, m_keypad, &Keypad::openFor);
    connect(m_generator, &generator::keypadRequested, m_keypad, &Keypad::openFor);
}

void MainWindow::wireSweep()
{
    m_list->setPowerGuard(*m_powerGuard);
    connect(new AcceptedWatch(m_ui->POW), &AcceptedWatch::accepted, &m_list->sweep(),
            &SweepGroup::followPower);
    connect(new AcceptedWatch(m_ui->FREQ), &AcceptedWatch::accepted, &m_list->sweep(),
            &SweepGroup::followFrequency);
    m_triggers = std::make_unique<TriggerCommands>(m_session, *m_list, *m_modulation->pulse());
    m_listTransfer = std::make_unique<ListTransfer>(m_session, *m_list, *m_ui->POW);
    m_sweepCommands = std::make_unique<SweepCommands>(
        m_session, *m_list, *m_triggers, *m_listTransfer, *m_powerGuard,
        SweepCommands::CwWidgets{*m_ui->FREQ, *m_ui->POW, {m_ui->key_FREQ, m_ui->key_POW}});
    m_exclusions = std::make_unique<Exclusions>(
        Exclusions::Parts{*m_modulation, *m_modulationCommands, *m_generator, *m_lfGenerator,
                          *m_list, *m_sweepCommands, *m_triggers});
    connect(m_exclusions.get(), &Exclusions::statusMessage, m_status.get(),
            &StatusLine::showInstrumentMessage);
    connect(m_sweepCommands.get(), &SweepCommands::statusMessage, m_status.get(),
            &StatusLine::showInstrumentMessage);
    connect(&m_connection, &Connection::disconnected, m_sweepCommands.get(),
            &SweepCommands::connectionLost);
    connect(m_triggers.get(), &TriggerCommands::refreshWanted, this, qOverload<>(&QWidget::update));
    m_runPicture = std::make_unique<RunPicture>(*m_list, *m_ui->POW);
    m_runPicture->follow(*m_sweepCommands, *m_triggers);
    m_runDisplay = std::make_unique<RunDisplay>(
        RunDisplay::Widgets{*m_ui->FREQ, *m_ui->unit_FREQ, *m_ui->POW, *m_ui->unit_POW,
                            *m_ui->label_Run, *m_ui->run_point, *m_ui->run_progress,
                            *m_ui->stop_run},
        *m_list, *m_runPicture, *m_sweepCommands);
    connect(m_runDisplay.get(), &RunDisplay::statusMessage, m_status.get(),
            &StatusLine::showInstrumentMessage);
    connect(m_runDisplay.get(), &RunDisplay::statusMessageOver, m_status.get(),
            &StatusLine::forgetMessage);
    connect(m_list, &List::keypadRequested, m_keypad, &Keypad::openFor);
    connect(m_list, &List::statusMessage, m_status.get(), &StatusLine::showMessage);
    connect(m_list, &List::errorMessage, this, &MainWindow::reportError);
}

void MainWindow::wireService()
{
    m_serviceCommands = std::make_unique<ServiceCommands>(m_session, *m_service);
    connect(m_serviceCommands.get(), &ServiceCommands::statusMessage, m_status.get(),
            &StatusLine::showInstrumentMessage);
    connect(m_serviceCommands.get(), &ServiceCommands::errorMessage, this,
            &MainWindow::reportError);
    connect(m_service, &service::statusMessage, m_status.get(), &StatusLine::showMessage);
    connect(m_service, &service::keypadRequested, m_keypad, &Keypad::openFor);
    // An instrument that comes to an open panel fills it, as opening it does.
    connect(&m_connection, &Connection::ready, this, [this] {
        if (m_ui->service->isChecked())
            initial_service();
    });
    connect(&m_connection, &Connection::disconnected, m_serviceCommands.get(),
            &ServiceCommands::stopWriting);
    connect(m_ui->service, &QAbstractButton::toggled, m_serviceCommands.get(), [this](bool isOpen) {
        if (!isOpen)
            m_serviceCommands->stopWriting();
    });
    connect(&m_connection, &Connection::pollDue, this, [this] {
        if (m_ui->service->isChecked() && !m_firmwareUpdate->isRunning())
            m_serviceCommands->readTemperature();
    });
}

void MainWindow::wireFirmware()
{
    m_firmwareUpdate = std::make_unique<FirmwareUpdate>(
        FirmwareUpdate::Parts{m_session, m_connection, m_source->watch()});
    auto* dialog = new Firmware(this);
    connect(m_about.get(), &Form::updateFirmware, dialog, &QWidget::show);
    connect(dialog, &Firmware::update, m_firmwareUpdate.get(), &FirmwareUpdate::slotUpdateFirmware);
    connect(m_firmwareUpdate.get(), &FirmwareUpdate::statusMessage, m_status.get(),
            &StatusLine::showMessage);
    connect(m_firmwareUpdate.get(), &FirmwareUpdate::cameBack, m_ui->connect,
            &QAbstractButton::click);
    // Before the click tells of its own search.
    connect(m_ui->connect, &QAbstractButton::pressed, m_firmwareUpdate.get(),
            &FirmwareUpdate::stop);
    connect(m_firmwareUpdate.get(), &FirmwareUpdate::started, this,
            [this] { m_source->endBootloaderSoon(); });
}

void MainWindow::wireSource()
{
    auto* offer = new SimulatorOffer(this);
    m_ui->status_layout->addWidget(offer);
    setTabOrder(m_ui->closeWindow, offer);
    connect(&m_connection, &Connection::attemptStarted, offer, &QWidget::hide);
    connect(&m_connection, &Connection::nothingFound, offer,
            [this, offer] { offer->setVisible(!m_source->isSimulated()); });
    connect(offer, &QAbstractButton::clicked, this, [this] { simulate(true); });
    // Answered at once: the desktop may end right behind it.
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { endProgram(); });
}

void MainWindow::wireProfiles()
{
    m_panelProfiles = std::make_unique<PanelProfiles>(
        PanelProfiles::Panels{*this, *m_modulation, *m_generator, *m_list},
        PanelProfiles::Instrument{m_session, m_connection, *m_powerGuard}, *m_cw, *m_ui->ROSC_FREQ);
    m_panelProfiles->setUsable([this](const QWidget* widget) {
        return widget == m_ui->closeWindow || widget == m_ui->minimize ||
               widget == m_ui->stop_run || m_outputOff->isWayOff(widget) ||
               m_powerGuard->isOfQuestion(widget);
    });
    connect(m_panelProfiles.get(), &PanelProfiles::applied, this, &MainWindow::update_Modulation);
    connect(m_panelProfiles.get(), &PanelProfiles::applied, this, &MainWindow::update_Generator);
    openSave_XML_FILE& files = m_panelProfiles->files();
    connect(&files, &openSave_XML_FILE::message, m_status.get(), &StatusLine::showMessage);
    connect(&files, &openSave_XML_FILE::error, this, &MainWindow::reportError);
    m_profiles = new openSaveProfile(files, this);
    // A profile switches no RF output, connects to nothing, starts no run and opens no panel.
    for (QWidget* control : std::initializer_list<QWidget*>{
             m_ui->Output, m_ui->connect, m_ui->open_mod, m_ui->open_list, m_ui->open_gener,
             m_ui->profiles, m_ui->service, m_service, m_profiles, &m_list->runSweep(),
             &m_list->runList()})
        files.store().exclude(control);
    m_sidePanels->add(m_profiles, m_ui->profiles);
    connect(m_profiles, &SidePanel::hide_, this, [this] { m_sidePanels->close(m_profiles); });
}

void MainWindow::setUpEscape()
{
    m_escapeOrder = std::make_unique<EscapeOrder>();
    for (SidePanel* panel : std::initializer_list<SidePanel*>{m_modulation, m_list, m_generator,
                                                              m_profiles, m_service})
        m_escapeOrder->add(panel, [this, panel] { m_sidePanels->close(panel); });
    auto* prompt = findChild<WgtModePow*>();
    m_escapeOrder->add(prompt, [prompt] { prompt->close(); });
}

/// The order in which a freshly reset instrument is brought into line with the panel.
void MainWindow::setUpPush()
{
    m_connection.setPushSteps({
        {[] { return tr("reference"); }, [this] { m_cw->pushReferenceSource(); }},
        {[] { return tr("RF output"); }, [this] { m_cw->pushOutput(); }},
        {[] { return tr("frequency"); }, [this] { m_cw->pushFrequency(); }},
        {[] { return tr("power"); }, [this] { m_cw->pushPower(); }},
        {[] { return tr("power mode"); }, [this] { m_powerMode->restore(); }},
        {[] { return tr("LF generator"); }, [this] { m_lfGenerator->restore(); }},
        {[] { return tr("modulation"); }, [this] { m_modulationCommands->restore(); }},
        {[] { return tr("external reference"); }, [this] { m_cw->pushExternalReference(); }},
        {[] { return tr("DAC"); }, [this] { m_serviceCommands->readDac(); }},
    });
}
