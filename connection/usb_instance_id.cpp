#include "connection/usb_instance_id.h"

#include "connection/usb_ids.h"

namespace
{
/// Empty for an ID without the maker's vendor ID and `productId`.
QString serialInInstanceId(const QString& instanceId, const char* productId)
{
    // With their prefixes, so that the digits of a serial number are never taken for an ID.
    const QString vendor = QLatin1String("VID_") + QLatin1String(MakerVendorId);
    const QString product = QLatin1String("PID_") + QLatin1String(productId);
    if (!instanceId.contains(vendor, Qt::CaseInsensitive) ||
        !instanceId.contains(product, Qt::CaseInsensitive))
        return {};
    return instanceId.section(QLatin1Char('\\'), 2, 2);
}
} // namespace

QStringList serialsInInstanceIds(const QStringList& parentIds, const QStringList& ownIds)
{
    QStringList serials;
    const auto collect = [&](const QStringList& instanceIds, const char* productId) {
        for (const QString& instanceId : instanceIds) {
            const QString serial = serialInInstanceId(instanceId, productId);
            if (!serial.isEmpty())
                serials += serial;
        }
    };
    for (const ProductPair& pair : ProductPairs) {
        collect(parentIds, pair.parentId);
        collect(ownIds, pair.ownId);
    }
    return serials;
}
