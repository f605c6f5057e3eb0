#include "connection/usb_access.h"
#include "tests/support/rows.h"

#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

/// Whether a plugged-in instrument may be opened, on folders that look like the system's.
class UsbAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void findsWhatMayNotBeOpened_data();
    void findsWhatMayNotBeOpened();

private:
    void plug(const QString& device, const QByteArray& vendor, int number, int mode);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void UsbAccessTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkpath("nodes/001"));
    QVERIFY(QDir(m_folder->path()).mkpath("devices/1-0:1.0"));
}

/// A device with its node; without one when `mode` is negative.
void UsbAccessTest::plug(const QString& device, const QByteArray& vendor, int number, int mode)
{
    const QString folder = m_folder->filePath("devices/" + device);
    QVERIFY(QDir().mkpath(folder));
    const auto write = [](const QString& path, const QByteArray& text) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write(folder + "/idVendor", vendor + "\n");
    write(folder + "/busnum", "1\n");
    write(folder + "/devnum", QByteArray::number(number) + "\n");
    if (mode < 0)
        return;
    const QString node = m_folder->filePath(QString("nodes/001/%1").arg(number, 3, 10, QChar('0')));
    write(node, {});
    QVERIFY(QFile::setPermissions(node, QFile::Permissions(mode)));
}

void UsbAccessTest::findsWhatMayNotBeOpened_data()
{
    testColumns<QByteArray, int, bool>("vendor", "mode", "isFound");
    testRow("accessible", QByteArray("5645"), 0x6000, false);
    testRow("read only", QByteArray("5645"), 0x4000, true);
    testRow("no node", QByteArray("5645"), -1, true);
    testRow("another maker's", QByteArray("1d50"), -1, false);
}

void UsbAccessTest::findsWhatMayNotBeOpened()
{
    QFETCH(QByteArray, vendor);
    QFETCH(int, mode);
    QFETCH(bool, isFound);
    if (mode == 0x4000 && geteuid() == 0)
        QSKIP("root may open everything");
    plug("1-1", "1d6b", 1, 0x6000);
    plug("1-2", vendor, 12, mode);
    QCOMPARE(inaccessibleNode(m_folder->filePath("devices"), m_folder->filePath("nodes")),
             isFound ? m_folder->filePath("nodes/001/012") : QString());
}

QTEST_GUILESS_MAIN(UsbAccessTest)
#include "usb_access_test.moc"
