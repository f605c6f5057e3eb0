#pragma once

#include "app/start_options.h"
#include "connection/connection.h"
#include "connection/gui_list_klv.h"
#include "connection/running_copies.h"
#include "link/scpi_session.h"
#include "link/search_klv.h"
#include "link/visa_library.h"

#include <QMainWindow>
#include <QSettings>

#include <memory>

class CwControls;
class ErrorChip;
class EscapeOrder;
class Exclusions;
class FirmwareUpdate;
class Form;
class InstrumentSource;
class Keypad;
class Language;
class LfGeneratorCommands;
class List;
class ListTransfer;
class Modulat;
class ModulationCommands;
class OutputDisplay;
class OutputOff;
class PanelProfiles;
class PowerGuard;
class PowerMode;
class RunDisplay;
class RunPicture;
class ServiceCommands;
class SidePanels;
class StatusLine;
class SweepCommands;
class TriggerCommands;
class generator;
class openSaveProfile;
class service;

namespace Ui
{
class MainWindow;
}

/// The program's one window. Builds the form, owns the link, the operations and the side panels,
/// and wires them. Holds no SCPI text and formats no number.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(const StartOptions& options, QWidget* parent = nullptr);
    /// Hands the instrument back if one is connected.
    ~MainWindow() override;

    /// Shows the window and connects if an instrument is there.
    void start();

    /// The way of the close button for whoever cannot click it, whatever goes on. What is to be
    /// kept is kept before this returns: the system may not wait any longer.
    void endProgram();

public slots:
    void on_connect_clicked();
    void on_Output_clicked();
    void on_ROSC_clicked();
    void on_open_ROSC_FREQ_clicked();
    void on_open_mod_clicked();
    void on_open_list_clicked();
    void on_open_gener_clicked();
    void on_profiles_clicked();
    void on_service_clicked();
    void on_minimize_clicked();
    void on_closeWindow_clicked();

    void showKLVDevice(const QString& address, const QString& model, const QString& series);
    void finishVisaSearch();
    void failVisaSearch();
    void slot_connect(const QString& address);

    /// The last animation of the side panels is over: their buttons work again.
    void allow_move();
    /// Holds the side panels in place: their buttons are ignored.
    void not_move();
    void closeFromModulation();
    void closeFromList();
    void closeFromGenerator();
    void service_close();
    void initial_service();
    void animate_move_service();
    void update_Modulation();
    void update_Generator();
    void CommandSweep();
    void CommandList();

    void toHelp();

signals:
    /// The service panel is to slide in or out.
    void service_animate();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void connectAtStart();
    void loadSettings();
    void setUpForm();
    void setUpPanels();
    void setUpMenu();
    void setUpEscape();
    void setUpPush();
    void wireStatusLine();
    void wireConnection();
    void wireCwControls();
    void wirePowerMode();
    void wireModulation();
    void wireSweep();
    void wireService();
    void wireFirmware();
    void wireProfiles();
    void wireSource();
    void simulate(bool isSimulated);
    void showSource();
    QString themeSetting() const;
    void chooseLanguage(const QString& code);
    void chooseTheme(const QString& name);
    void askCeiling();
    void applyLook();
    void retranslate();

    void showIdentity(const InstrumentIdentity& identity);
    void showReady();
    void showBounded();
    void showDisconnected();
    void showConnectedState(bool isConnected);
    void showIndicator329(const QString& message);
    void refreshPanel(QWidget* panel);
    void reportError(const QString& message);
    void saveScreenshotOnceSettled();

    StartOptions m_options;
    QSettings m_settings;
    std::unique_ptr<InstrumentSource> m_source;
    std::unique_ptr<Language> m_language;
    std::unique_ptr<Ui::MainWindow> m_ui;

    VisaLibrary m_visa;
    ScpiSession m_session;
    SearchKLV m_search;
    GuiListKLV m_chooser;
    RunningCopies m_copies;
    Connection m_connection;

    std::unique_ptr<PowerGuard> m_powerGuard; ///< outlives all who commit a power
    std::unique_ptr<CwControls> m_cw;
    std::unique_ptr<PowerMode> m_powerMode;
    std::unique_ptr<ModulationCommands> m_modulationCommands;
    std::unique_ptr<LfGeneratorCommands> m_lfGenerator;
    std::unique_ptr<ListTransfer> m_listTransfer;
    std::unique_ptr<TriggerCommands> m_triggers;
    std::unique_ptr<SweepCommands> m_sweepCommands;
    std::unique_ptr<RunPicture> m_runPicture;
    std::unique_ptr<RunDisplay> m_runDisplay;
    std::unique_ptr<Exclusions> m_exclusions;
    std::unique_ptr<ServiceCommands> m_serviceCommands;
    std::unique_ptr<FirmwareUpdate> m_firmwareUpdate;
    std::unique_ptr<StatusLine> m_status;
    std::unique_ptr<ErrorChip> m_errors;
    std::unique_ptr<PanelProfiles> m_panelProfiles;
    std::unique_ptr<Form> m_about;
    std::unique_ptr<SidePanels> m_sidePanels;
    std::unique_ptr<EscapeOrder> m_escapeOrder;
    std::unique_ptr<OutputOff> m_outputOff;
    std::unique_ptr<OutputDisplay> m_outputDisplay;
    Keypad* m_keypad = nullptr;
    Modulat* m_modulation = nullptr;
    List* m_list = nullptr;
    generator* m_generator = nullptr;
    openSaveProfile* m_profiles = nullptr;
    service* m_service = nullptr;
};
