#pragma once

#include <QByteArray>
#include <QString>

// Whether the instrument's USB driver is in order, looked at when the program starts. What is
// decided and which commands are run is the same everywhere; how it is found out is the platform's.

/// Checks this computer and installs the driver where that is needed and possible. Blocks while
/// the system's tools run. False after an installation: the user connects by hand then.
bool checkDriver();

/// A program with the rest of its command line, which begins with a blank.
struct DriverCommand {
    QString program;
    QString arguments;
};

/// "C:\KLV\Drivers\" for the program in "C:/KLV".
QString driversFolder(const QString& applicationFolder);
QString driverTool(bool is64BitSystem);
DriverCommand statusCommand(const QString& folder, const QString& tool);
DriverCommand installCommand(const QString& folder, const QString& tool);
/// True only for a driver that reports a problem and does not run; without any output it counts as
/// working.
bool needsInstalling(const QByteArray& statusOutput);

/// What the check by the device-console tool asks of the system.
class DriverSystem
{
public:
    virtual ~DriverSystem() = default;
    virtual bool hasUsbTmcService() const = 0;
    virtual bool is64Bit() const = 0;
    /// The program's output; empty when it cannot be started or takes more than 30 s.
    virtual QByteArray run(const DriverCommand& command) = 0;
};

/// The check by the device-console tool.
bool checkDriver(DriverSystem& system, const QString& applicationFolder);
