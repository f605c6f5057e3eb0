#include "connection/identification.h"

#include "link/common_commands.h"
#include "link/scpi_session.h"
#include "ui/instrument_text.h"

#include <QRegularExpression>

namespace
{
constexpr int oldestCompatibleMinor = 4;

const QString calibrationDueQuery = QStringLiteral("SERV:SOUR:CDUE?");

QString withoutLineFeeds(QString text)
{
    return text.remove(QLatin1Char('\n'));
}

bool isOldFirmware(const QString& firmware)
{
    const QStringList version = firmware.split(QLatin1Char('.'));
    return version.size() >= 3 && version.at(1).toInt() < oldestCompatibleMinor;
}
} // namespace

QString InstrumentIdentity::title() const
{
    return model + QLatin1String(" (") + serial + QLatin1Char(')');
}

Identification identifyInstrument(ScpiSession& session, const QStringList& allowedSerials)
{
    static const QRegularExpression pattern(QStringLiteral("[ \\w ]*,[ \\w ]*,[ \\w ]*"));
    const ExchangeLog::As identification(session.log(), Exchange::Kind::Identification);
    Identification found;
    const auto failed = [&found](const StatusWords& fault) {
        found.fault = fault;
        return found;
    };
    const QString reply = session.read(identityQuery);
    if (session.lastStatus() == VI_ERROR_TMO)
        return failed(
            [] { return Identification::tr("no access to the device: it does not answer"); });
    if (session.lastFailed())
        return failed([status = session.lastStatus()] {
            return Identification::tr("no access to the device: VISA status %1")
                .arg(statusText(status));
        });
    if (!pattern.match(reply).hasMatch())
        return failed([] {
            return Identification::tr("no access to the device: it does not identify itself");
        });

    const QStringList fields = reply.split(QLatin1Char(','));
    const QString serial = withoutLineFeeds(fields.value(2)).trimmed();
    const QString firmware = fields.last().trimmed();
    found.identity = {fields.value(1).trimmed(), serial, firmware};
    if (!allowedSerials.isEmpty() && !allowedSerials.contains(serial))
        return failed([serial] {
            return Identification::tr(
                       "no access to the device: serial number %1 is not among those allowed")
                .arg(instrumentText(serial));
        });
    found.isTooOld = isOldFirmware(firmware);
    if (found.isTooOld)
        return failed([firmware] {
            return Identification::tr(
                       "The firmware %1 of the instrument is too old for this program")
                .arg(instrumentText(firmware));
        });

    found.calibrationDue = withoutLineFeeds(session.query(calibrationDueQuery));
    if (session.lastFailed())
        return failed([] {
            return Identification::tr("connection error: the instrument has stopped answering");
        });
    return found;
}
