#include <umockdev.h>
#undef signals

#include "usbtmc/plugged_in.h"

#include <QtTest>

/// The instruments that the driver has bound, on a bus of mocked devices (runs under umockdev's
/// preload).
class UsbtmcSearchTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_bus.reset();
        m_bus.reset(umockdev_testbed_new());
        QVERIFY2(umockdev_in_mock_environment(), "run under umockdev-wrapper");
    }

    void namesInstruments()
    {
        const QByteArray model = "::0x5645::0x0001::";
        const std::pair<QList<QByteArray>, QByteArray> rows[] = {
            {{}, ""},
            {{"A"}, "USB0" + model + "A::INSTR"},
            {{"B", "A"}, "USB0" + model + "B::INSTR USB0" + model + "A::INSTR"},
            {{"", ""}, "USB0" + model + "::INSTR USB1" + model + "::INSTR"},
            {{"A", "A"}, "USB0" + model + "A::INSTR USB1" + model + "A::INSTR"},
            {{"A::B"}, "USB0" + model + "A__B::INSTR"},
        };
        for (const auto& [serials, expected] : rows) {
            init();
            for (int i = 0; i < serials.size(); ++i)
                plug(i, serials[i]);
            QList<QByteArray> names;
            for (const PluggedIn& each : pluggedIn()) {
                const std::string name = each.resource.name.text();
                names += QByteArray::fromStdString(name);
                ResourceName parsed;
                QVERIFY(parseResourceName(name, parsed));
                QCOMPARE(parsed.serial, each.resource.name.serial);
            }
            QCOMPARE(names.join(' '), expected);
        }
    }

    void tellsWhatIsKnown()
    {
        plug(3, "A", "02", "03");
        const PluggedIn found = pluggedIn().at(0);
        QCOMPARE(found.resource.maker, std::string("Veltro"));
        QCOMPARE(found.resource.model, std::string("KLV-6G"));
        QCOMPARE(found.resource.name.text(), std::string("USB0::0x5645::0x0001::A::2::INSTR"));
        QCOMPARE(found.node, std::string("/dev/usbtmc3"));
        QVERIFY(found.asksForService);
    }

    // Its node is still listed, what it hangs on is gone.
    void passesOverWhatIsPulledOrNoInstrument()
    {
        g_free(addNode("usbtmc0"));
        plug(0, "A", "00", "02", "hiddev");
        QVERIFY(pluggedIn().empty());
    }

private:
    char* addNode(const QByteArray& name, const char* parent = nullptr)
    {
        return umockdev_testbed_add_device(m_bus.get(), "usbmisc", name.constData(), parent,
                                           nullptr, nullptr);
    }

    void plug(int number, const QByteArray& serial, const char* interface = "00",
              const char* endpoints = "02", const char* driver = "usbtmc")
    {
        const QByteArray port = "1-" + QByteArray::number(9 - number); // in another order
        char* device = umockdev_testbed_add_device(
            m_bus.get(), "usb", port.constData(), nullptr, "idVendor", "5645", "idProduct", "0001",
            "manufacturer", "Veltro", "product", "KLV-6G", nullptr, nullptr);
        if (!serial.isEmpty())
            umockdev_testbed_set_attribute(m_bus.get(), device, "serial", serial.constData());
        char* itsInterface = umockdev_testbed_add_device(
            m_bus.get(), "usb", (port + ":1.0").constData(), device, "bInterfaceNumber", interface,
            "bNumEndpoints", endpoints, nullptr, nullptr);
        char* node = addNode(driver + QByteArray::number(number), itsInterface);
        umockdev_testbed_set_attribute_link(m_bus.get(), node, "device", "..");
        g_free(node);
        g_free(itsInterface);
        g_free(device);
    }

    std::unique_ptr<UMockdevTestbed, void (*)(gpointer)> m_bus{nullptr, g_object_unref};
};

QTEST_GUILESS_MAIN(UsbtmcSearchTest)
#include "search_test.moc"
