#include "connection/hot_plug_watch.h"
#include "connection/usb_ids.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <libudev.h>

namespace
{
/// Releases a libudev object with its owner.
template <auto unref>
struct Unref {
    template <class T>
    void operator()(T* object) const
    {
        unref(object);
    }
};
using Udev = std::unique_ptr<udev, Unref<udev_unref>>;
using Monitor = std::unique_ptr<udev_monitor, Unref<udev_monitor_unref>>;
using Enumerate = std::unique_ptr<udev_enumerate, Unref<udev_enumerate_unref>>;
using Device = std::unique_ptr<udev_device, Unref<udev_device_unref>>;

/// One plug makes several events within a few milliseconds.
constexpr int BurstMs = 50;
/// The kernel's driver makes its node after the device's own event, and loading the driver takes
/// its time. Where another driver has taken the instrument, no such node comes.
constexpr int LongestBurstMs = 1000;

bool isInstrumentProduct(const QByteArray& productId)
{
    return std::any_of(std::begin(ProductPairs), std::end(ProductPairs),
                       [&](const ProductPair& pair) {
                           return productId == pair.parentId || productId == pair.ownId;
                       });
}

/// The watch over udev: its monitor for the events, sysfs for the list.
class UdevWatch : public HotPlugWatch
{
public:
    UdevWatch();
    QStringList presentSerials() const override;

private:
    void startMonitor();
    void takeEvents();
    void endBurst();
    bool isNodeAwaited() const;

    Udev m_udev{udev_new()};
    Monitor m_monitor;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_burst;
    int m_burstMs = 0;
};

UdevWatch::UdevWatch()
{
    m_burst.setSingleShot(true);
    m_burst.setInterval(BurstMs);
    connect(&m_burst, &QTimer::timeout, this, &UdevWatch::endBurst);
    if (m_udev)
        startMonitor();
}

void UdevWatch::startMonitor()
{
    // Events that udev has processed, not the kernel's: by then the device's permissions are set.
    m_monitor.reset(udev_monitor_new_from_netlink(m_udev.get(), "udev"));
    if (!m_monitor ||
        udev_monitor_filter_add_match_subsystem_devtype(m_monitor.get(), "usb", "usb_device") < 0 ||
        udev_monitor_filter_add_match_subsystem_devtype(m_monitor.get(), "usbmisc", nullptr) < 0 ||
        udev_monitor_enable_receiving(m_monitor.get()) < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(udev_monitor_get_fd(m_monitor.get()),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &UdevWatch::takeEvents);
}

void UdevWatch::takeEvents()
{
    // What changed does not matter, and an overrun queue is a change as well.
    while (Device(udev_monitor_receive_device(m_monitor.get()))) {
    }
    if (m_burst.isActive())
        return;
    m_burstMs = 0;
    m_burst.start();
}

void UdevWatch::endBurst()
{
    m_burstMs += BurstMs;
    if (m_burstMs < LongestBurstMs && isNodeAwaited())
        m_burst.start();
    else
        emit devicesChanged();
}

/// Whether an instrument has an interface for the kernel's driver whose node is not ready: the
/// search would not find it, or find it without the right to open it.
bool UdevWatch::isNodeAwaited() const
{
    const Enumerate interfaces(udev_enumerate_new(m_udev.get()));
    if (!interfaces)
        return false;
    udev_enumerate_add_match_subsystem(interfaces.get(), "usb");
    udev_enumerate_add_match_sysattr(interfaces.get(), "bInterfaceClass", "fe");
    udev_enumerate_add_match_sysattr(interfaces.get(), "bInterfaceSubClass", "03");
    udev_enumerate_scan_devices(interfaces.get());
    for (udev_list_entry* entry = udev_enumerate_get_list_entry(interfaces.get()); entry;
         entry = udev_list_entry_get_next(entry)) {
        const Device interface(
            udev_device_new_from_syspath(m_udev.get(), udev_list_entry_get_name(entry)));
        udev_device* device = interface ? udev_device_get_parent_with_subsystem_devtype(
                                              interface.get(), "usb", "usb_device")
                                        : nullptr;
        if (!device ||
            qstrcmp(udev_device_get_sysattr_value(device, "idVendor"), MakerVendorId) != 0)
            continue;
        const Enumerate nodes(udev_enumerate_new(m_udev.get()));
        udev_enumerate_add_match_subsystem(nodes.get(), "usbmisc");
        udev_enumerate_add_match_parent(nodes.get(), interface.get());
        udev_enumerate_add_match_is_initialized(nodes.get());
        udev_enumerate_scan_devices(nodes.get());
        if (!udev_enumerate_get_list_entry(nodes.get()))
            return true;
    }
    return false;
}

QStringList UdevWatch::presentSerials() const
{
    QStringList serials;
    const Enumerate devices(m_udev ? udev_enumerate_new(m_udev.get()) : nullptr);
    if (!devices)
        return serials;
    udev_enumerate_add_match_subsystem(devices.get(), "usb");
    udev_enumerate_add_match_sysattr(devices.get(), "idVendor", MakerVendorId);
    udev_enumerate_scan_devices(devices.get());
    for (udev_list_entry* entry = udev_enumerate_get_list_entry(devices.get()); entry;
         entry = udev_list_entry_get_next(entry)) {
        const Device device(
            udev_device_new_from_syspath(m_udev.get(), udev_list_entry_get_name(entry)));
        if (!device ||
            !isInstrumentProduct(udev_device_get_sysattr_value(device.get(), "idProduct")))
            continue;
        const QString serial =
            QString::fromUtf8(udev_device_get_sysattr_value(device.get(), "serial"));
        if (!serial.isEmpty())
            serials += serial;
    }
    return serials;
}
} // namespace

std::unique_ptr<HotPlugWatch> createBusWatch()
{
    return std::make_unique<UdevWatch>();
}
