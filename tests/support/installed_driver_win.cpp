#include "tests/support/installed_driver.h"

#include <QSettings>

struct InstalledDriver::Entry {
    QSettings services{QStringLiteral("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\services"),
                       QSettings::NativeFormat};
};

InstalledDriver::InstalledDriver() : m_entry(new Entry)
{
    m_entry->services.setValue("Usbtmc/Start", 3);
    m_entry->services.sync();
    if (m_entry->services.status() != QSettings::NoError)
        qFatal("The registry may not be written");
}

InstalledDriver::~InstalledDriver()
{
    m_entry->services.remove("Usbtmc");
}
