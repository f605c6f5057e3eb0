#include "connection/device_access.h"

#include "connection/usb_access.h"
#include "connection/usb_ids.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace
{
QByteArray attribute(const QFileInfo& device, const char* name)
{
    QFile file(device.filePath() + QLatin1Char('/') + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}
} // namespace

QString inaccessibleNode(const QString& devicesFolder, const QString& nodesFolder)
{
    const QFileInfoList devices =
        QDir(devicesFolder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo& device : devices) {
        if (attribute(device, "idVendor") != MakerVendorId)
            continue;
        // Both numbers have three digits in the node's path.
        const QFileInfo node(
            QStringLiteral("%1/%2/%3")
                .arg(nodesFolder)
                .arg(attribute(device, "busnum").toInt(), 3, 10, QLatin1Char('0'))
                .arg(attribute(device, "devnum").toInt(), 3, 10, QLatin1Char('0')));
        if (!node.isReadable() || !node.isWritable())
            return node.filePath();
    }
    return QString();
}

QString deviceAccessComplaint()
{
    const QString node =
        inaccessibleNode(QStringLiteral("/sys/bus/usb/devices"), QStringLiteral("/dev/bus/usb"));
    if (node.isEmpty())
        return QString();
    return QCoreApplication::translate("DriverCheck",
                                       "No access to the instrument at %1: install the udev rule "
                                       "70-klv.rules and plug it in again")
        .arg(node);
}
