#pragma once

#include "app/device_level.h"
#include "app/program_settings.h"
#include "app/runs.h"
#include "app/side_panels.h"
#include "app/start_options.h"
#include "connection/connection.h"
#include "connection/gui_list_klv.h"
#include "connection/running_copies.h"
#include "cw/cw_controls.h"
#include "fields/field_context.h"
#include "link/instrument_limits.h"
#include "link/notices.h"
#include "link/scpi_session.h"
#include "link/search_klv.h"
#include "link/visa_library.h"
#include "modulation/generator.h"
#include "modulation/lf_generator_commands.h"
#include "modulation/modulat.h"
#include "modulation/modulation_commands.h"
#include "numbers/step_table.h"
#include "profiles/panel/open_save_profile.h"
#include "service/service_commands.h"
#include "service/service_panel.h"
#include "sweep/list_panel.h"
#include "ui/look.h"
#include "ui/zoom.h"

#include <QMainWindow>

#include <memory>

class ErrorChip;
class EscapeOrder;
class FieldLine;
class FirmwareUpdate;
class Form;
class InstrumentDisplay;
class InstrumentSource;
class Keypad;
class OutputDisplay;
class OutputOff;
class LogFile;
class PanelProfiles;
class PanelPush;
class PictureColumn;
class PowerGuard;
class PowerMode;
class ScpiLog;
class SimulatorSwitch;
class StatusLine;
class WindowMenu;
class WindowPlace;

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

    /// Closes as the close button does, without a click and whatever is going on. The state is
    /// saved before this returns: the system may not wait any longer.
    void endProgram();

public slots:
    // The form's buttons; connected by these names.
    void on_connect_clicked();
    void on_Output_clicked() { m_cw->on_Output_clicked(); }
    void on_ROSC_clicked() { m_cw->on_ROSC_clicked(); }
    void on_open_ROSC_FREQ_clicked() { m_cw->openReferenceEntry(); }
    void on_open_mod_clicked() { m_sidePanels->toggle(m_modulation); }
    void on_open_list_clicked() { m_sidePanels->toggle(m_list); }
    void on_open_gener_clicked() { m_sidePanels->toggle(m_generator); }
    void on_profiles_clicked() { m_sidePanels->toggle(m_profiles); }
    void on_service_clicked() { emit service_animate(); }
    void on_minimize_clicked() { showMinimized(); }
    void on_closeWindow_clicked() { close(); }

    void showKLVDevice(const QString& address, const QString& model, const QString& series)
    {
        m_connection.showKLVDevice(address, model, series);
    }
    void finishVisaSearch() { m_connection.finishVisaSearch(); }
    void failVisaSearch() { m_connection.failVisaSearch(); }
    void slot_connect(const QString& address) { m_connection.slot_connect(address); }

    /// The last animation of the side panels is over: their buttons work again.
    void allow_move() { SidePanels::setMoving(false); }
    /// Holds the side panels in place: their buttons are ignored.
    void not_move() { SidePanels::setMoving(true); }
    void closeFromModulation() { m_sidePanels->close(m_modulation); }
    void closeFromList() { m_sidePanels->close(m_list); }
    void closeFromGenerator() { m_sidePanels->close(m_generator); }
    void closeFromProfiles() { m_sidePanels->close(m_profiles); }
    void service_close() { m_sidePanels->close(m_service); }
    void animate_move_service() { m_sidePanels->toggle(m_service); }
    void initial_service() { m_serviceCommands->initial_service(); }
    void update_Modulation() { m_modulationCommands->update_Modulation(); }
    void update_Generator() { m_lfGenerator->update_Generator(); }
    void CommandSweep() { m_runs->commands().CommandSweep(); }
    void CommandList() { m_runs->commands().CommandList(); }
    void toHelp();

signals:
    /// The service panel is to be opened or closed.
    void service_animate();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void setUpForm();
    void setUpPanels();
    void addPanel(SidePanel* panel, QAbstractButton* toggle, void (MainWindow::*closing)());
    void setUpPictures();
    void setUpMenu();
    void setUpPush();
    void loadSettings();
    void wireStatusLine();
    void wireConnection();
    void wireCwControls();
    void addLines();
    void openKeypadOfFocus();
    void wireModulation();
    void wireSweep();
    void wireService();
    void wireFirmware();
    void wireProfiles();
    void wireLog();

    void refreshPanel(QWidget* panel);
    void reportError(const QString& message);
    void retranslate();

    StartOptions m_options;
    ProgramSettings m_settings;
    Look m_look;
    Zoom m_zoom;
    DeviceLevel m_level{m_settings};
    std::unique_ptr<InstrumentSource> m_source;
    std::unique_ptr<Ui::MainWindow> m_ui;

    InstrumentLimits m_limits;
    StepTable m_steps;
    Notices m_notices;
    const FieldContext m_context{m_limits, m_steps, m_notices};

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
    std::unique_ptr<Runs> m_runs;
    std::unique_ptr<ServiceCommands> m_serviceCommands;
    std::unique_ptr<FirmwareUpdate> m_firmwareUpdate;
    std::unique_ptr<SimulatorSwitch> m_simulator;
    std::unique_ptr<StatusLine> m_status;
    std::unique_ptr<ErrorChip> m_errors;
    std::unique_ptr<InstrumentDisplay> m_instrument;
    std::unique_ptr<PanelProfiles> m_panelProfiles;
    std::unique_ptr<SidePanels> m_sidePanels;
    std::unique_ptr<PictureColumn> m_pictures;
    std::unique_ptr<EscapeOrder> m_escapeOrder;
    std::unique_ptr<OutputOff> m_outputOff;
    std::unique_ptr<OutputDisplay> m_outputDisplay;
    std::unique_ptr<PanelPush> m_panelPush;
    std::unique_ptr<LogFile> m_logFile;
    std::unique_ptr<FieldLine> m_fieldLine;
    Form* m_about = nullptr;
    ScpiLog* m_log = nullptr;
    WindowMenu* m_menu = nullptr;
    WindowPlace* m_place = nullptr;
    Keypad* m_keypad = nullptr;
    Modulat* m_modulation = nullptr;
    List* m_list = nullptr;
    generator* m_generator = nullptr;
    openSaveProfile* m_profiles = nullptr;
    service* m_service = nullptr;
};
