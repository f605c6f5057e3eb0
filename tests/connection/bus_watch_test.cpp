#include <umockdev.h>
#undef signals

#include "connection/hot_plug_watch.h"

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
    void init()
    {
        m_bus.reset();
        m_bus.reset(umockdev_testbed_new());
        QVERIFY2(umockdev_in_mock_environment(), "run under umockdev-wrapper");
        m_watch = createBusWatch();
    }

    void listsInstrumentsOnly()
    {
        plug("1-1", "1d50", "0041", "another maker");
        plug("1-2", "5645", "0046", "another product");
        plug("1-3", "5645", "0041", nullptr);
        QCOMPARE(presentSerials(), QStringList());
        QStringList products;
        for (const char* product : {"0040", "0041", "0042", "0043", "0044", "0045"}) {
            plug(product, "5645", product, product);
            products << product;
        }
        QCOMPARE(presentSerials(), products);
    }

    void tellsPlugAndUnplug()
    {
        QSignalSpy changes(m_watch.get(), &HotPlugWatch::devicesChanged);
        const QByteArray first = plug("1-1", "5645", "0041", "A");
        QCoreApplication::processEvents();
        const QByteArray second = plug("1-2", "5645", "0042", "B");
        QVERIFY(changes.wait());
        QCOMPARE(presentSerials(), QStringList({"A", "B"}));
        unplug(first);
        QVERIFY(changes.wait());
        QCOMPARE(presentSerials(), QStringList("B"));
        unplug(second);
        QVERIFY(changes.wait());
        QCOMPARE(presentSerials(), QStringList());
        QCOMPARE(changes.count(), 3);
    }

    // The search would not find it any sooner.
    void waitsForTheDriversNode()
    {
        QSignalSpy changes(m_watch.get(), &HotPlugWatch::devicesChanged);
        const QByteArray device = plug("1-1", "5645", "0041", "A");
        char* interface = umockdev_testbed_add_device(
            m_bus.get(), "usb", "1-1:1.0", device.constData(), "bInterfaceClass", "fe",
            "bInterfaceSubClass", "03", nullptr, "DEVTYPE", "usb_interface", nullptr);
        QVERIFY(!changes.wait(300));
        g_free(umockdev_testbed_add_device(m_bus.get(), "usbmisc", "usbtmc0", interface, nullptr,
                                           "DEVNAME", "/dev/usbtmc0", nullptr));
        g_free(interface);
        QVERIFY(changes.wait());
        QCOMPARE(changes.count(), 1);
        // One that comes later still is news, too.
        g_free(umockdev_testbed_add_device(m_bus.get(), "usbmisc", "usbtmc1", nullptr, nullptr,
                                           "DEVNAME", "/dev/usbtmc1", nullptr));
        QVERIFY(changes.wait());
    }

    void livesWithoutDevices()
    {
        char* sysfs = umockdev_testbed_get_sys_dir(m_bus.get());
        QVERIFY(QDir(QFile::decodeName(sysfs)).removeRecursively());
        g_free(sysfs);
        m_watch = createBusWatch();
        QCOMPARE(presentSerials(), QStringList());
    }

private:
    /// The device's path in sysfs.
    QByteArray plug(const char* name, const char* vendorId, const char* productId,
                    const char* serial)
    {
        char* path = umockdev_testbed_add_device(
            m_bus.get(), "usb", name, nullptr, "idVendor", vendorId, "idProduct", productId,
            serial ? "serial" : nullptr, serial, nullptr, "DEVTYPE", "usb_device", nullptr);
        QByteArray result(path);
        g_free(path);
        return result;
    }

    void unplug(const QByteArray& path)
    {
        umockdev_testbed_uevent(m_bus.get(), path.constData(), "remove");
        umockdev_testbed_remove_device(m_bus.get(), path.constData());
    }

    QStringList presentSerials() const
    {
        QStringList serials = m_watch->presentSerials();
        serials.sort();
        return serials;
    }

    std::unique_ptr<UMockdevTestbed, Unref> m_bus;
    std::unique_ptr<HotPlugWatch> m_watch;
};

QTEST_GUILESS_MAIN(TestBusWatch)
#include "bus_watch_test.moc"
