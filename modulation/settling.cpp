#include "modulation/settling.h"

#include "link/activity.h"
#include "link/scpi_session.h"

#include <QCoreApplication>

std::unique_ptr<Activity> settingModulation(const ScpiSession& session)
{
    if (!session.isConnected())
        return nullptr;
    return std::make_unique<Activity>(
        [] { return QCoreApplication::translate("ModulationCommands", "Setting the modulation"); });
}
