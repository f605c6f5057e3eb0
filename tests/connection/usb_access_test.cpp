#include "connection/usb_access.h"
#include "tests/support/files.h"

#include <QtTest>

#include <unistd.h>

/// Whether a plugged-in instrument may be opened, on folders that look like the system's.
class UsbAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void findsWhatMayNotBeOpened()
    {
        check("5645", 0x6000, false);
        check("5645", -1, true);
        check("1d50", -1, false);
        if (geteuid() == 0)
            QSKIP("root may open everything");
        check("5645", 0x4000, true);
    }

private:
    void check(const QByteArray& vendor, int mode, bool isFound) const
    {
        plug("1-1", "1d6b", "001", 0x6000);
        plug("1-2", vendor, "012", mode);
        const auto found = [this](DeviceNode kind) {
            return inaccessibleNode(kind, m_folder.filePath("devices"), m_folder.filePath("nodes"));
        };
        QCOMPARE(found(DeviceNode::Usb), isFound ? m_folder.filePath("nodes/001/012") : QString());
        // Not every driver is bound.
        QCOMPARE(found(DeviceNode::UsbTmc), QString());
        QVERIFY(QDir().mkpath(m_folder.filePath("devices/1-2/1-2:1.0/usbmisc/usbtmc12")));
        setNode("usbtmc12", mode);
        QCOMPARE(found(DeviceNode::UsbTmc),
                 isFound ? m_folder.filePath("nodes/usbtmc12") : QString());
        QVERIFY(QDir(m_folder.filePath("devices/1-2")).removeRecursively());
    }

    /// A device with its node; without one when `mode` is negative.
    void plug(const QString& device, const QByteArray& vendor, const QString& number,
              int mode) const
    {
        const QString folder = m_folder.filePath("devices/" + device);
        writeFile(folder + "/idVendor", vendor + "\n");
        writeFile(folder + "/busnum", "1\n");
        writeFile(folder + "/devnum", QByteArray::number(number.toInt()) + "\n");
        setNode("001/" + number, mode);
    }

    void setNode(const QString& name, int mode) const
    {
        const QString node = m_folder.filePath("nodes/" + name);
        QFile::remove(node);
        if (mode < 0)
            return;
        writeFile(node);
        QVERIFY(QFile::setPermissions(node, QFile::Permissions(mode)));
    }

    const QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(UsbAccessTest)
#include "usb_access_test.moc"
