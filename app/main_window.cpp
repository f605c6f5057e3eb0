#include "app/main_window.h"

#include "app/error_chip.h"
#include "app/escape_order.h"
#include "app/exclusions.h"
#include "app/help_file.h"
#include "app/output_display.h"
#include "app/output_off.h"
#include "app/panel_profiles.h"
#include "app/power_ceiling.h"
#include "app/run_display.h"
#include "app/side_panels.h"
#include "app/status_line.h"
#include "connection/instrument_source.h"
#include "link/instrument_limits.h"
#include "modulation/generator.h"
#include "modulation/lf_generator_commands.h"
#include "modulation/modulat.h"
#include "modulation/modulation_commands.h"
#include "numbers/step_table.h"
#include "panel/cw_controls.h"
#include "panel/keypad.h"
#include "panel/power_guard.h"
#include "panel/power_mode.h"
#include "profiles/open_save_profile.h"
#include "service/about_box.h"
#include "service/driver_check.h"
#include "service/firmware_update.h"
#include "service/service_commands.h"
#include "service/service_panel.h"
#include "sweep/list_panel.h"
#include "sweep/list_transfer.h"
#include "sweep/run_picture.h"
#include "sweep/sweep_commands.h"
#include "sweep/trigger_commands.h"
#include "ui/error_box.h"
#include "ui/instrument_text.h"
#include "ui/language.h"
#include "ui/resources.h"
#include "ui/theme_choice.h"
#include "ui/window_chrome.h"
#include "ui_mainwindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QTimer>

namespace
{
constexpr int deviceWidthConnected = 171;
constexpr int deviceWidthDisconnected = 131;
constexpr int indicatorAppearMs = 300;
constexpr int settleMs = 400;
constexpr int serialDigitsShown = 4;

const char* const identityRecords[] = {"/Settings/one", "/Settings/two", "/Settings/three",
                                       "/Settings/four"};
const QString languageKey = QStringLiteral("language");
const QString themeKey = QStringLiteral("theme");
} // namespace

MainWindow::MainWindow(const StartOptions& options, QWidget* parent)
    : QMainWindow(parent, Qt::FramelessWindowHint), m_options(options),
      m_settings(QStringLiteral("Veltro"), QStringLiteral("KLV")),
      m_source(std::make_unique<InstrumentSource>(options.isDemo, options.visaLibrary, m_visa,
                                                  m_session)),
      m_language(std::make_unique<Language>(options.language.isEmpty()
                                                ? m_settings.value(languageKey).toString()
                                                : options.language)),
      m_ui(std::make_unique<Ui::MainWindow>()), m_session(m_visa),
      m_search(m_visa, m_session.defaultRM()),
      m_connection(
          {m_session, InstrumentLimits::global(), m_search, m_chooser, m_copies, m_source->watch()},
          this)
{
    loadUiResources();
    applyLook();
    setUpForm();
    m_powerGuard = std::make_unique<PowerGuard>(m_session, *m_ui->Output, *this, &m_settings);
    setUpPanels();
    m_about = std::make_unique<Form>(this);
    m_keypad = new Keypad(this);
    setUpMenu();
    wireStatusLine();
    wireConnection();
    wireCwControls();
    wirePowerMode();
    wireModulation();
    wireSweep();
    wireService();
    wireFirmware();
    wireSource();
    wireProfiles();
    setUpEscape();
    setUpPush();
    loadSettings();
    m_source->open();
    showSource();
    showDisconnected();
    retranslate();
}

MainWindow::~MainWindow()
{
    m_connection.shutDown();
    m_session.closeResourceManager();
    m_panelProfiles->saveLast();
}

void MainWindow::start()
{
    m_ui->FREQ->setFocus();
    show();
    m_panelProfiles->applyAtStart(m_options.profilePath, m_options.isClean);
    QApplication::processEvents();
    if (m_session.isConnected())
        m_session.checkErrors();
    QTimer::singleShot(0, this, &MainWindow::connectAtStart);
    if (!m_options.screenshotPath.isEmpty())
        saveScreenshotOnceSettled();
}

void MainWindow::connectAtStart()
{
    if (m_source->isSimulated() || checkDriver())
        m_ui->connect->click();
}

void MainWindow::loadSettings()
{
    if (!m_options.isClean)
        StepTable::global().attach(&m_settings);
    QStringList allowedSerials;
    for (const char* record : identityRecords) {
        const QString serial = m_settings.value(QLatin1String(record)).toString();
        if (!serial.isEmpty())
            allowedSerials << serial;
    }
    m_connection.setAllowedSerials(allowedSerials);
    if (m_settings.status() != QSettings::NoError)
        m_status->showMessage(tr("The settings cannot be read: defaults are used"));
    else if (!m_settings.isWritable())
        m_status->showMessage(tr("The settings cannot be written: changes will not be kept"));
}

void MainWindow::setUpForm()
{
    m_ui->setupUi(this);
    new WindowChrome(this);
    setWindowIcon(QIcon(QStringLiteral(":/images/logotip.png")));
    // A click that took the focus would close the entry it is to close or open.
    m_ui->open_ROSC_FREQ->setFocusPolicy(Qt::TabFocus);
}

void MainWindow::simulate(bool isSimulated)
{
    m_firmwareUpdate->stop();
    m_connection.leave();
    m_source->simulate(isSimulated);
    showSource();
    connectAtStart();
}

void MainWindow::showSource()
{
    m_ui->label_simulated->setVisible(m_source->isSimulated());
    findChild<QAction*>(QStringLiteral("action_simulator"))->setChecked(m_source->isSimulated());
}

QString MainWindow::themeSetting() const
{
    return m_settings.value(themeKey, QStringLiteral("system")).toString();
}

void MainWindow::chooseLanguage(const QString& code)
{
    m_settings.setValue(languageKey, code);
    m_language->choose(code);
    applyLook();
}

void MainWindow::chooseTheme(const QString& name)
{
    m_settings.setValue(themeKey, name);
    applyLook();
}

void MainWindow::askCeiling()
{
    auto* dialog = new PowerCeiling(m_powerGuard->ceilingDbm(), this);
    connect(dialog, &PowerCeiling::chosen, m_powerGuard.get(), &PowerGuard::setCeilingDbm);
    dialog->open();
}

void MainWindow::applyLook()
{
    applyTheme(*qApp, chosenTheme(themeSetting()), Language::isRussian());
}

void MainWindow::on_connect_clicked()
{
    m_connection.on_connect_clicked(m_ui->connect->isChecked());
}
void MainWindow::on_Output_clicked()
{
    m_cw->on_Output_clicked();
}
void MainWindow::on_ROSC_clicked()
{
    m_cw->on_ROSC_clicked();
}
void MainWindow::on_open_ROSC_FREQ_clicked()
{
    m_cw->openReferenceEntry();
}
void MainWindow::on_open_mod_clicked()
{
    m_sidePanels->toggle(m_modulation);
}
void MainWindow::on_open_list_clicked()
{
    m_sidePanels->toggle(m_list);
}
void MainWindow::on_open_gener_clicked()
{
    m_sidePanels->toggle(m_generator);
}
void MainWindow::on_profiles_clicked()
{
    m_sidePanels->toggle(m_profiles);
}
void MainWindow::on_service_clicked()
{
    emit service_animate();
}
void MainWindow::on_minimize_clicked()
{
    showMinimized();
}
void MainWindow::on_closeWindow_clicked()
{
    close();
}

void MainWindow::showKLVDevice(const QString& address, const QString& model, const QString& series)
{
    m_connection.showKLVDevice(address, model, series);
}

void MainWindow::finishVisaSearch()
{
    m_connection.finishVisaSearch();
}

void MainWindow::failVisaSearch()
{
    m_connection.failVisaSearch();
}

void MainWindow::slot_connect(const QString& address)
{
    m_connection.slot_connect(address);
}

void MainWindow::allow_move()
{
    SidePanels::setMoving(false);
}
void MainWindow::not_move()
{
    SidePanels::setMoving(true);
}
void MainWindow::closeFromModulation()
{
    m_sidePanels->close(m_modulation);
}
void MainWindow::closeFromList()
{
    m_sidePanels->close(m_list);
}
void MainWindow::closeFromGenerator()
{
    m_sidePanels->close(m_generator);
}
void MainWindow::service_close()
{
    m_sidePanels->close(m_service);
}
void MainWindow::animate_move_service()
{
    m_sidePanels->toggle(m_service);
}
void MainWindow::update_Modulation()
{
    m_modulationCommands->update_Modulation();
}
void MainWindow::update_Generator()
{
    m_lfGenerator->update_Generator();
}
void MainWindow::CommandSweep()
{
    m_sweepCommands->CommandSweep();
}
void MainWindow::CommandList()
{
    m_sweepCommands->CommandList();
}
void MainWindow::initial_service()
{
    m_serviceCommands->initial_service();
}

void MainWindow::toHelp()
{
    const QString complaint = openHelp(helpPageOf(m_sidePanels->current()));
    if (!complaint.isEmpty())
        m_status->showMessage(complaint);
}

void MainWindow::showIdentity(const InstrumentIdentity& identity)
{
    m_ui->device->setText(instrumentText(identity.model + QLatin1Char(' ') +
                                         identity.serial.right(serialDigitsShown)));
    m_ui->device->setFixedWidth(deviceWidthConnected);
    m_about->setSerial(identity.serial);
    m_about->setFirmware(identity.firmware);
    m_service->showInstrument(identity.serial, identity.firmware);
    if (m_source->isSimulated())
        qInfo("Connected to %s, serial %s, firmware %s", qUtf8Printable(identity.model),
              qUtf8Printable(identity.serial), qUtf8Printable(identity.firmware));
}

void MainWindow::showReady()
{
    showConnectedState(true);
    showBounded();
}

/// Sweep and list may have been set for an instrument of other limits.
void MainWindow::showBounded()
{
    const int count = m_list->boundByLimits();
    if (count > 0)
        m_status->addInstrumentMessage(
            count == 1
                ? tr("One value of sweep and list was bounded by the limits of the instrument")
                : tr("%n values of sweep and list were bounded by the limits of the instrument",
                     nullptr, count));
}

void MainWindow::showDisconnected()
{
    m_ui->device->setFixedWidth(deviceWidthDisconnected);
    m_ui->device->setText(tr("Disconnected"));
    m_about->empty();
    m_service->forgetInstrument();
    m_cw->forgetInstrument();
    m_ui->label_329->hide();
    showConnectedState(false);
}

/// Colours the controls that tell a connected panel from an idle one.
void MainWindow::showConnectedState(bool isConnected)
{
    m_ui->device->setProperty("connected", isConnected);
    m_ui->led->setProperty("connected", isConnected);
}

void MainWindow::showIndicator329(const QString& message)
{
    if (m_ui->label_329->isHidden())
        m_ui->label_329->start(indicatorAppearMs);
    m_ui->label_329->setToolTip(instrumentText(message));
    m_ui->label_329->show();
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

void MainWindow::retranslate()
{
    m_cw->retranslate();
    m_runDisplay->retranslate();
    m_status->retranslate();
    m_errors->retranslate();
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !m_cw)
        return;
    const QString device = m_ui->device->text();
    m_ui->retranslateUi(this);
    if (m_session.isConnected())
        m_ui->device->setText(device);
    retranslate();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // Gone at once, whatever the search and the instrument still take.
    hide();
    m_powerGuard->cancel();
    m_connection.shutDown();
    QMainWindow::closeEvent(event);
}

void MainWindow::endProgram()
{
    close();
    m_panelProfiles->saveLast();
    QCoreApplication::quit();
}

/// Only what no field has taken for itself gets here.
void MainWindow::keyPressEvent(QKeyEvent* event)
{
    const bool isEscape = event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier;
    if (!isEscape || !m_escapeOrder->closeLast())
        QMainWindow::keyPressEvent(event);
}

/// Settled: nothing has been going on for a moment.
void MainWindow::saveScreenshotOnceSettled()
{
    auto* settled = new QTimer(this);
    settled->setSingleShot(true);
    settled->setInterval(settleMs);
    connect(&m_connection, &Connection::busyChanged, settled, [settled](bool isBusy) {
        if (isBusy)
            settled->stop();
        else
            settled->start();
    });
    connect(settled, &QTimer::timeout, this, [this, settled] {
        settled->deleteLater();
        if (!grab().save(m_options.screenshotPath))
            qWarning("The picture could not be saved as %s",
                     qUtf8Printable(m_options.screenshotPath));
    });
}
