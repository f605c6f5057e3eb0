#include "service/driver_check.h"

#include "connection/usb_ids.h"

namespace
{
const QString toolOf64Bit = QStringLiteral("devcon64.exe");
const QString toolOf32Bit = QStringLiteral("devcon32.exe");
const QString driverDescription = QStringLiteral("ausbtmc.inf");

QString quotedHardwareId()
{
    return QStringLiteral("\"USB\\VID_%1&PID_0040&MI_00\"").arg(QLatin1String(MakerVendorId));
}

/// The tool splits its arguments at blanks.
QString quotedIfNeeded(const QString& path)
{
    return path.contains(QLatin1Char(' ')) ? QLatin1Char('"') + path + QLatin1Char('"') : path;
}
} // namespace

QString driversFolder(const QString& applicationFolder)
{
    QString folder = applicationFolder;
    return folder.replace(QLatin1Char('/'), QLatin1Char('\\')) + QStringLiteral("\\Drivers\\");
}

QString driverTool(bool is64BitSystem)
{
    return is64BitSystem ? toolOf64Bit : toolOf32Bit;
}

DriverCommand statusCommand(const QString& folder, const QString& tool)
{
    return {folder + tool, QStringLiteral(" status ") + quotedHardwareId()};
}

DriverCommand installCommand(const QString& folder, const QString& tool)
{
    return {folder + tool, QStringLiteral(" update ") + quotedIfNeeded(folder + driverDescription) +
                               QLatin1Char(' ') + quotedHardwareId()};
}

bool needsInstalling(const QByteArray& statusOutput)
{
    return statusOutput.contains("problem") && !statusOutput.contains("running");
}

bool checkDriver(DriverSystem& system, const QString& applicationFolder)
{
    const QString folder = driversFolder(applicationFolder);
    const QString tool = driverTool(system.is64Bit());
    if (system.hasUsbTmcService() && !needsInstalling(system.run(statusCommand(folder, tool))))
        return true;
    system.run(installCommand(folder, tool));
    return false;
}
