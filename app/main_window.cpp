#include "app/main_window.h"

#include "app/error_chip.h"
#include "app/escape_order.h"
#include "app/field_line.h"
#include "app/help_file.h"
#include "app/instrument_display.h"
#include "app/output_display.h"
#include "app/output_off.h"
#include "app/panel_profiles.h"
#include "app/panel_push.h"
#include "app/picture_column.h"
#include "app/screenshot.h"
#include "app/simulator_switch.h"
#include "app/status_line.h"
#include "app/window_menu.h"
#include "app/window_place.h"
#include "connection/connection_obstacle.h"
#include "connection/instrument_source.h"
#include "cw/power_mode.h"
#include "cw/wgt_mode_pow.h"
#include "fields/keypad/keypad.h"
#include "fields/power_guard.h"
#include "log/log_file.h"
#include "log/scpi_log.h"
#include "modulation/waveform_picture.h"
#include "service/about_box.h"
#include "service/firmware_update.h"
#include "sweep/picture/list_plot.h"
#include "ui/error_box.h"
#include "ui/named.h"
#include "ui/reading_order.h"
#include "ui/window_chrome.h"
#include "ui_mainwindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QShortcut>
#include <QTimer>

#include <utility>

MainWindow::MainWindow(const StartOptions& options, QWidget* parent)
    : QMainWindow(parent), m_options(options), m_look(m_settings, options.language),
      m_zoom(options.isClean ? nullptr : &m_settings),
      m_source(std::make_unique<InstrumentSource>(options.isDemo, options.visaLibrary, m_visa,
                                                  m_session)),
      m_ui(std::make_unique<Ui::MainWindow>()), m_session(m_visa),
      m_search(m_visa, m_session.defaultRM()),
      m_connection(
          {m_session, m_limits, m_search, m_chooser, m_copies, m_source->watch(), m_notices}, this)
{
    setUpForm();
    m_powerGuard = std::make_unique<PowerGuard>(m_session, *m_ui->Output, *this, &m_settings);
    setUpPanels();
    setUpPictures();
    setUpMenu();
    wireStatusLine();
    wireConnection();
    wireCwControls();
    wireModulation();
    wireSweep();
    wireService();
    wireFirmware();
    wireProfiles();
    wireLog();
    setUpPush();
    loadSettings();
    m_source->open();
    retranslate();
}

MainWindow::~MainWindow()
{
    m_connection.shutDown();
    m_session.closeResourceManager();
    m_list->keepPoints();
    m_panelProfiles->saveLast();
    // What is half typed is committed, to nobody, while there is still all that this needs.
    hide();
}

void MainWindow::start()
{
    m_ui->FREQ->setFocus();
    show();
    if (!m_options.isClean)
        m_list->restorePoints(m_settings);
    m_panelProfiles->applyAtStart(m_options.profilePath, m_options.isClean);
    QApplication::processEvents();
    if (m_session.isConnected())
        m_session.checkErrors();
    QTimer::singleShot(0, m_simulator.get(), &SimulatorSwitch::connectAtStart);
    if (!m_options.screenshotPath.isEmpty())
        saveScreenshotOnceSettled(*this, m_connection, m_options.screenshotPath);
}

void MainWindow::setUpForm()
{
    m_ui->setupUi(this);
    new WindowChrome(this);
    setWindowIcon(QIcon(QStringLiteral(":/images/logotip.png")));
    // A click that took the focus would close the entry it is to close or open.
    m_ui->open_ROSC_FREQ->setFocusPolicy(Qt::TabFocus);
    // What is changed in a field between its clicks is not to be committed by the next one.
    m_ui->connect->setProperty("takesFocus", true);
    // A direct connection: the desktop may end right after it.
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { endProgram(); });
}

// Only after the form: connectSlotsByName takes the first child of a name, and panels share names
// with the form.
void MainWindow::setUpPanels()
{
    m_modulation = new Modulat(m_context, this);
    m_list = new List(m_context, this);
    m_generator = new generator(m_context, this);
    m_service = new service(m_context, this);
    m_about = new Form(this);
    m_keypad = new Keypad(m_context, this);

    m_place = new WindowPlace(this);
    m_sidePanels = std::make_unique<SidePanels>(this, m_ui->drawer, *m_place);
    m_escapeOrder = std::make_unique<EscapeOrder>();
    addPanel(m_modulation, m_ui->open_mod, &MainWindow::closeFromModulation);
    addPanel(m_list, m_ui->open_list, &MainWindow::closeFromList);
    addPanel(m_generator, m_ui->open_gener, &MainWindow::closeFromGenerator);
    addPanel(m_service, m_ui->service, &MainWindow::service_close);
    connect(this, &MainWindow::service_animate, this, &MainWindow::animate_move_service);
    connect(m_sidePanels.get(), &SidePanels::allMoved, this, &MainWindow::allow_move);
    connect(m_sidePanels.get(), &SidePanels::opened, this, &MainWindow::refreshPanel);
}

void MainWindow::addPanel(SidePanel* panel, QAbstractButton* toggle, void (MainWindow::*closing)())
{
    m_sidePanels->add(panel, toggle);
    connect(panel, &SidePanel::hide_, this, closing);
    m_escapeOrder->add(panel, [panel] { emit panel->hide_(); });
}

void MainWindow::setUpPictures()
{
    m_pictures = std::make_unique<PictureColumn>(*m_ui->pictures, *m_sidePanels);
    ListPlot& plot = m_list->plot();
    m_pictures->add({m_list,
                     {&plot},
                     {&m_list->runSweep(), &m_list->runList()},
                     [&plot] { return &plot; },
                     [this, &plot] { return m_list->isRunning() ? &plot : nullptr; }});
    WaveformPicture& lfPicture = m_generator->picture();
    const auto& shapes = m_generator->shapeButtons();
    m_pictures->add({m_generator,
                     {&lfPicture},
                     {shapes.begin(), shapes.end()},
                     [&lfPicture] { return &lfPicture; },
                     [this, &lfPicture] { return m_generator->isOn() ? &lfPicture : nullptr; }});
    PictureColumn::Source modulation{m_modulation,
                                     {},
                                     {},
                                     [this] { return &m_modulation->picture(); },
                                     [this] { return m_modulation->activePicture(); }};
    for (const Modulat::Part& part : m_modulation->parts()) {
        modulation.pictures.push_back(part.picture);
        modulation.switches.push_back(part.state);
    }
    m_pictures->add(modulation);
    connect(m_modulation, &Modulat::pictureChanged, m_pictures.get(), &PictureColumn::refresh);
}

void MainWindow::setUpMenu()
{
    m_menu = new WindowMenu(m_look, m_zoom, *m_powerGuard, m_level, m_context, this);
    // The shortcuts work without the menu being open.
    addActions(m_menu->actions());
    m_ui->menuButton->setMenu(m_menu);
    connect(m_menu, &WindowMenu::helpChosen, this, &MainWindow::toHelp);
    connect(m_menu, &WindowMenu::aboutChosen, m_about, &Form::showAbout);
    connect(m_menu, &WindowMenu::quitChosen, this, &MainWindow::close);
}

/// The order in which the panel's state is sent to a freshly reset instrument.
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

void MainWindow::loadSettings()
{
    if (!m_options.isClean) {
        m_steps.attach(&m_settings);
        m_place->keepIn(m_settings);
    }
    m_connection.setAllowedSerials(m_settings.allowedSerials());
    if (const StatusWords complaint = m_settings.complaint())
        m_notices.say(complaint);
}

void MainWindow::wireStatusLine()
{
    m_status = std::make_unique<StatusLine>(*m_ui->status, m_notices);
    m_status->follow(m_connection);
    m_errors = std::make_unique<ErrorChip>(*m_ui->errors, m_session, m_notices);
}

void MainWindow::wireConnection()
{
    connect(&m_search, &SearchKLV::sendData, this, &MainWindow::showKLVDevice);
    connect(&m_search, &SearchKLV::finish, this, &MainWindow::finishVisaSearch);
    connect(&m_search, &SearchKLV::error, this, &MainWindow::failVisaSearch);
    connect(&m_chooser, &GuiListKLV::sendAddress, this, &MainWindow::slot_connect);

    m_chooser.setNeighbour(*this);
    m_connection.setObstacle(
        [this] { return connectionObstacle(m_visa, m_session, m_source->node()); });
    m_connection.setLibraryWords([this] { return m_source->ownLibraryWords(); });
    m_about->setLibraryWords([this] { return m_source->libraryWords(); });
    connect(&m_connection, &Connection::buttonShouldBe, m_ui->connect,
            &QAbstractButton::setChecked);
    connect(&m_connection, &Connection::buttonShouldBeClicked, m_ui->connect,
            &QAbstractButton::click);
    connect(&m_connection, &Connection::titleChanged, this, &MainWindow::setWindowTitle);
    m_instrument = std::make_unique<InstrumentDisplay>(
        InstrumentDisplay::Widgets{*m_ui->device, *m_ui->led, *m_ui->label_329}, *m_about,
        *m_service, m_session, m_connection);
    connect(&m_connection, &Connection::refused, this, &MainWindow::reportError);
    connect(&m_connection, &Connection::pushed, this, &QWidget::activateWindow);
    connect(&m_connection, &Connection::disconnected, m_powerGuard.get(), &PowerGuard::cancel);
}

void MainWindow::wireCwControls()
{
    m_cw = std::make_unique<CwControls>(m_session, m_context, *m_powerGuard,
                                        CwControls::Widgets{*m_ui->FREQ, *m_ui->POW, *m_ui->Output,
                                                            *m_ui->ROSC, *m_ui->ROSC_FREQ,
                                                            *m_ui->label_328, *m_ui->label_ExtRef});
    connect(&m_connection, &Connection::disconnected, m_cw.get(), &CwControls::forgetInstrument);
    m_cw->forgetInstrument();
    m_outputDisplay = std::make_unique<OutputDisplay>(*m_ui->Output, *m_ui->label_RF, m_session,
                                                      m_connection, *m_cw);
    m_outputOff =
        std::make_unique<OutputOff>(*m_ui->Output, *m_outputDisplay, m_connection, m_notices);
    connect(m_outputOff.get(), &OutputOff::offWanted, m_cw.get(), &CwControls::pushOutput);
    m_keypad->setPowerGuard(*m_powerGuard);
    const std::pair<QPushButton*, NumberEdit*> keys[] = {{m_ui->key_FREQ, m_ui->FREQ},
                                                         {m_ui->unit_FREQ, m_ui->FREQ},
                                                         {m_ui->key_POW, m_ui->POW},
                                                         {m_ui->unit_POW, m_ui->POW}};
    for (const auto& [key, field] : keys)
        connect(key, &QAbstractButton::clicked, m_keypad,
                [this, field = field] { m_keypad->openFor(field); });
    connect(new QShortcut(Qt::Key_F8, this), &QShortcut::activated, this,
            &MainWindow::openKeypadOfFocus);
    addLines();

    auto* prompt = new WgtModePow(*m_ui->butSetModePow, this);
    m_powerMode = std::make_unique<PowerMode>(m_session, *m_ui->wgtMaxPow, *prompt);
    m_escapeOrder->add(prompt, [prompt] { prompt->close(); });
}

/// What is said about the field that has the focus, and about the level at the device.
void MainWindow::addLines()
{
    const auto held = [this]() -> StatusWords {
        if (m_list->runList().isChecked())
            return [] { return tr("Frequency and power are set by the list: F3"); };
        return [] { return tr("Frequency and power are set by the sweep: F3"); };
    };
    m_fieldLine = std::make_unique<FieldLine>(*m_powerGuard, *m_ui->FREQ, held, m_ui->controls);
    m_ui->cw_layout->insertWidget(1, m_fieldLine.get());
    connect(&m_connection, &Connection::ready, m_fieldLine.get(), &FieldLine::refresh);

    auto* level = named("device_level", new ElidingLabel(m_ui->display));
    level->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    level->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_ui->power_title_layout->addWidget(level, 1);
    m_level.show(*m_ui->POW, *level);
}

void MainWindow::openKeypadOfFocus()
{
    if (auto* field = qobject_cast<NumberEdit*>(focusWidget()))
        m_keypad->openFor(field);
}

// AM, FM, PM, pulse and the LF generator share the instrument's modulation source.
void MainWindow::wireModulation()
{
    m_modulationCommands = std::make_unique<ModulationCommands>(
        m_session, *m_modulation,
        ModulationCommands::Indicators{*m_ui->label_AmPmFm, *m_ui->label_PULM});
    m_lfGenerator =
        std::make_unique<LfGeneratorCommands>(m_session, *m_generator, *m_ui->label_Gener);
    connect(m_modulation, &Modulat::keypadRequested, m_keypad, &Keypad::openFor);
    connect(m_generator, &generator::keypadRequested, m_keypad, &Keypad::openFor);
}

void MainWindow::wireSweep()
{
    m_list->setPowerGuard(*m_powerGuard);
    m_runs = std::make_unique<Runs>(
        m_session, m_connection, *m_powerGuard, *m_ui, *m_list,
        Runs::Others{*m_modulation, *m_modulationCommands, *m_generator, *m_lfGenerator},
        m_notices);
    connect(m_list, &List::keypadRequested, m_keypad, &Keypad::openFor);
    connect(m_list, &List::errorMessage, this, &MainWindow::reportError);
}

void MainWindow::wireService()
{
    m_serviceCommands = std::make_unique<ServiceCommands>(m_session, *m_service, m_notices);
    connect(m_serviceCommands.get(), &ServiceCommands::errorMessage, this,
            &MainWindow::reportError);
    connect(m_service, &service::keypadRequested, m_keypad, &Keypad::openFor);
}

void MainWindow::wireFirmware()
{
    m_firmwareUpdate = std::make_unique<FirmwareUpdate>(
        FirmwareUpdate::Parts{m_session, m_connection, m_source->watch(), m_notices});
    m_serviceCommands->follow(m_connection, *m_ui->service, *m_firmwareUpdate);
    m_firmwareUpdate->follow(*m_about, *m_ui->connect, this);
    connect(m_firmwareUpdate.get(), &FirmwareUpdate::started, this,
            [this] { m_source->endBootloaderSoon(); });
    m_simulator = std::make_unique<SimulatorSwitch>(*m_source, m_connection, *m_firmwareUpdate,
                                                    *m_ui, *m_menu);
}

void MainWindow::wireProfiles()
{
    m_panelProfiles = std::make_unique<PanelProfiles>(
        PanelProfiles::Panels{*this, *m_modulation, *m_generator, *m_list},
        PanelProfiles::Instrument{m_session, m_connection, *m_powerGuard, m_steps}, *m_cw, *m_ui,
        m_notices);
    connect(m_panelProfiles.get(), &PanelProfiles::applied, this, &MainWindow::update_Modulation);
    connect(m_panelProfiles.get(), &PanelProfiles::applied, this, &MainWindow::update_Generator);
    openSave_XML_FILE& files = m_panelProfiles->files();
    connect(&files, &openSave_XML_FILE::error, this, &MainWindow::reportError);
    m_profiles = new openSaveProfile(files, this);
    for (QWidget* panel : std::initializer_list<QWidget*>{m_service, m_profiles})
        files.store().exclude(panel);
    addPanel(m_profiles, m_ui->profiles, &MainWindow::closeFromProfiles);
}

void MainWindow::wireLog()
{
    m_log = new ScpiLog(m_session, m_settings, this);
    connect(m_menu, &WindowMenu::logChosen, m_log, &ScpiLog::open);
    connect(m_errors.get(), &ErrorChip::clicked, m_log, &ScpiLog::open);
    connect(m_log, &ScpiLog::errorMessage, this, &MainWindow::reportError);
    m_panelPush = std::make_unique<PanelPush>(m_connection, m_log->handCommands(), *m_outputDisplay,
                                              *m_list, *m_ui, m_notices);
    if (!m_options.logPath.isEmpty())
        m_logFile = std::make_unique<LogFile>(m_options.logPath, m_session.log(), m_notices);
}

void MainWindow::refreshPanel(QWidget* panel)
{
    if (panel == m_service)
        initial_service();
    else if (panel == m_modulation)
        update_Modulation();
    else if (panel == m_generator)
        update_Generator();
}

void MainWindow::reportError(const QString& message)
{
    ErrorBox::report(message, this);
}

void MainWindow::on_connect_clicked()
{
    m_connection.on_connect_clicked(m_ui->connect->isChecked());
}

void MainWindow::toHelp()
{
    if (const StatusWords complaint = openHelp(helpPageOf(m_sidePanels->current())))
        m_notices.say(complaint);
}

void MainWindow::retranslate()
{
    m_ui->FREQ->describeKeypadKey(*m_ui->unit_FREQ);
    m_ui->POW->describeKeypadKey(*m_ui->unit_POW);
    m_instrument->retranslate();
    m_cw->retranslate();
    m_runs->retranslate();
    m_status->retranslate();
    m_errors->retranslate();
    m_outputDisplay->retranslate();
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !m_cw)
        return;
    m_ui->retranslateUi(this);
    retranslate();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // Hidden at once, however long the search and the instrument still take.
    hide();
    m_log->close();
    m_powerGuard->cancel();
    m_connection.shutDown();
    QMainWindow::closeEvent(event);
}

void MainWindow::endProgram()
{
    close();
    m_list->keepPoints();
    m_panelProfiles->saveLast();
    QCoreApplication::quit();
}

/// Only keys that no field has accepted arrive here.
void MainWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isEscape = event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier;
    if (!isEscape || !m_escapeOrder->closeLast())
        QMainWindow::keyPressEvent(event);
}

/// Panels come and go, and rows of theirs.
bool MainWindow::focusNextPrevChild(bool next)
{
    tabInReadingOrder(*centralWidget());
    return QMainWindow::focusNextPrevChild(next);
}
