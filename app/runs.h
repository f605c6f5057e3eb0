#pragma once

#include "app/exclusions.h"
#include "app/run_display.h"
#include "sweep/list_transfer.h"
#include "sweep/run_picture.h"
#include "sweep/sweep_commands.h"
#include "sweep/trigger_commands.h"

#include <optional>

class Connection;
class PowerGuard;
class ScpiSession;

namespace Ui
{
class MainWindow;
}

/// Connects the sweep and list panel with the form of the window: owns what loads, triggers, starts
/// and shows a run, and what keeps it from running together with a modulation.
class Runs : public QObject
{
    Q_OBJECT

public:
    /// The modulations and the LF generator, which exclude a run.
    struct Others {
        Modulat& modulation;
        ModulationCommands& modulationCommands;
        generator& lfGenerator;
        LfGeneratorCommands& lfCommands;
    };

    Runs(ScpiSession& session, const Connection& connection, PowerGuard& guard,
         const Ui::MainWindow& form, List& panel, const Others& others, Notices& notices);

    SweepCommands& commands() { return m_commands; }

    /// In the current language.
    void retranslate() { m_display->retranslate(); }

private:
    void showBounded();

    List& m_panel;
    Notices& m_notices;
    TriggerCommands m_triggers;
    ListTransfer m_transfer;
    SweepCommands m_commands;
    Exclusions m_exclusions;
    RunPicture m_picture;
    std::optional<RunDisplay> m_display; ///< notified after the picture, whose clock it shows
};
