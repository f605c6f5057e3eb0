#include <umockdev.h>
#undef signals

#include "connection/hot_plug_watch.h"
#include "tests/support/rows.h"

#include <QSignalSpy>
#include <QtTest>

namespace
{
struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
} // namespace

/// The watch over the system's USB, on a bus of mocked devices (runs under umockdev's preload).
class TestBusWatch : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void findsEachProduct_data();
    void findsEachProduct();
    void listsInstrumentsOnly();
    void tellsPlugAndUnplug();
    void livesWithoutDevices();

private:
    /// The device's path in sysfs.
    QByteArray plug(const char* name, const char* vendorId, const char* productId,
                    const char* serial);
    void unplug(const QByteArray& path);

    std::unique_ptr<UMockdevTestbed, Unref> m_bus;
};

void TestBusWatch::init()
{
    m_bus.reset();
    m_bus.reset(umockdev_testbed_new());
    QVERIFY2(umockdev_in_mock_environment(), "run under umockdev-wrapper");
}

QByteArray TestBusWatch::plug(const char* name, const char* vendorId, const char* productId,
                              const char* serial)
{
    char* path = umockdev_testbed_add_device(
        m_bus.get(), "usb", name, nullptr, "idVendor", vendorId, "idProduct", productId,
        serial ? "serial" : nullptr, serial, nullptr, "DEVTYPE", "usb_device", nullptr);
    QByteArray result(path);
    g_free(path);
    return result;
}

void TestBusWatch::unplug(const QByteArray& path)
{
    umockdev_testbed_uevent(m_bus.get(), path.constData(), "remove");
    umockdev_testbed_remove_device(m_bus.get(), path.constData());
}

void TestBusWatch::findsEachProduct_data()
{
    testColumns<QByteArray>("productId");
    for (const char* productId : {"0040", "0041", "0042", "0043", "0044", "0045"})
        testRow(productId, QByteArray(productId));
}

void TestBusWatch::findsEachProduct()
{
    QFETCH(QByteArray, productId);
    plug("1-1", "5645", productId.constData(), "1234-5678");
    QCOMPARE(createBusWatch()->presentSerials(false), QStringList("1234-5678"));
}

void TestBusWatch::listsInstrumentsOnly()
{
    plug("1-1", "1d50", "0041", "another maker");
    plug("1-2", "5645", "0046", "another product");
    plug("1-3", "5645", "0041", nullptr);
    const std::unique_ptr<HotPlugWatch> watch = createBusWatch();
    QCOMPARE(watch->presentSerials(false), QStringList());
    plug("1-4", "5645", "0043", "A");
    plug("1-5", "5645", "0044", "B");
    QStringList serials = watch->presentSerials(false);
    serials.sort();
    QCOMPARE(serials, QStringList({"A", "B"}));
    QCOMPARE(watch->presentSerials(true).size(), 1);
}

void TestBusWatch::tellsPlugAndUnplug()
{
    const std::unique_ptr<HotPlugWatch> watch = createBusWatch();
    QSignalSpy changes(watch.get(), &HotPlugWatch::devicesChanged);
    const QByteArray first = plug("1-1", "5645", "0041", "A");
    QCoreApplication::processEvents();
    const QByteArray second = plug("1-2", "5645", "0042", "B");
    QVERIFY(changes.wait());
    QCOMPARE(watch->presentSerials(false).size(), 2);
    unplug(first);
    QVERIFY(changes.wait());
    QCOMPARE(watch->presentSerials(false), QStringList("B"));
    unplug(second);
    QVERIFY(changes.wait());
    QCOMPARE(watch->presentSerials(false), QStringList());
    QCOMPARE(changes.count(), 3);
}

void TestBusWatch::livesWithoutDevices()
{
    char* sysfs = umockdev_testbed_get_sys_dir(m_bus.get());
    QVERIFY(QDir(QFile::decodeName(sysfs)).removeRecursively());
    g_free(sysfs);
    const std::unique_ptr<HotPlugWatch> watch = createBusWatch();
    QCOMPARE(watch->presentSerials(false), QStringList());
}

QTEST_GUILESS_MAIN(TestBusWatch)
#include "bus_watch_test.moc"
