#pragma once

#include <QObject>

class Connection;
class FirmwareUpdate;
class InstrumentSource;
class WindowMenu;
struct InstrumentIdentity;

namespace Ui
{
class MainWindow;
}

/// Switches between real and simulated instruments while the program runs: by the menu, and by the
/// offer beside the status line when no real one was found. Shows on the window which of the two is
/// in use.
class SimulatorSwitch : public QObject
{
    Q_OBJECT

public:
    SimulatorSwitch(InstrumentSource& source, Connection& connection, FirmwareUpdate& update,
                    const Ui::MainWindow& form, WindowMenu& menu);

    /// Presses the connect button, unless a driver has to be installed first.
    void connectAtStart();

private:
    void simulate(bool isSimulated);
    void show();
    void print(const InstrumentIdentity& identity) const;

    InstrumentSource& m_source;
    Connection& m_connection;
    FirmwareUpdate& m_update;
    const Ui::MainWindow& m_form;
    WindowMenu& m_menu;
};
