#include "app/program_settings.h"

ProgramSettings::ProgramSettings() : QSettings(QStringLiteral("Veltro"), QStringLiteral("KLV")) {}

QStringList ProgramSettings::allowedSerials() const
{
    QStringList serials;
    for (const char* record : {"one", "two", "three", "four"})
        serials << value(QStringLiteral("/Settings/") + QLatin1String(record)).toString();
    serials.removeAll(QString());
    return serials;
}

StatusWords ProgramSettings::complaint() const
{
    if (status() != NoError)
        return [] { return tr("The settings cannot be read: defaults are used"); };
    if (!isWritable())
        return [] { return tr("The settings cannot be written: changes will not be saved"); };
    return nullptr;
}
