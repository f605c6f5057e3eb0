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

QStringList nodesOf(const QFileInfo& device, DeviceNode kind)
{
    if (kind == DeviceNode::Usb) {
        // Both numbers have three digits in the node's path.
        return {QStringLiteral("%1/%2")
                    .arg(attribute(device, "busnum").toInt(), 3, 10, QLatin1Char('0'))
                    .arg(attribute(device, "devnum").toInt(), 3, 10, QLatin1Char('0'))};
    }
    QStringList nodes;
    const QFileInfoList interfaces =
        QDir(device.filePath()).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo& interface : interfaces)
        nodes += QDir(interface.filePath() + QStringLiteral("/usbmisc"))
                     .entryList({QStringLiteral("usbtmc*")}, QDir::Dirs);
    return nodes;
}
} // namespace

QString inaccessibleNode(DeviceNode kind, const QString& devicesFolder, const QString& nodesFolder)
{
    const QFileInfoList devices =
        QDir(devicesFolder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo& device : devices) {
        if (attribute(device, "idVendor") != MakerVendorId)
            continue;
        const QStringList names = nodesOf(device, kind);
        for (const QString& name : names) {
            const QFileInfo node(nodesFolder + QLatin1Char('/') + name);
            if (!node.isReadable() || !node.isWritable())
                return node.filePath();
        }
    }
    return QString();
}

QString deviceAccessComplaint(DeviceNode kind)
{
    const QString node = inaccessibleNode(kind, QStringLiteral("/sys/bus/usb/devices"),
                                          kind == DeviceNode::Usb ? QStringLiteral("/dev/bus/usb")
                                                                  : QStringLiteral("/dev"));
    if (node.isEmpty())
        return QString();
    return QCoreApplication::translate("DriverCheck",
                                       "No access to the instrument at %1: install the udev rule "
                                       "70-klv.rules and plug it in again")
        .arg(node);
}
