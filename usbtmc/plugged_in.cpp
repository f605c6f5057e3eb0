#include "usbtmc/plugged_in.h"

#include <algorithm>
#include <cstdlib>
#include <libudev.h>

namespace
{

/// A libudev object with the function that releases it.
template <class Type>
using Owned = std::unique_ptr<Type, Type* (*)(Type*)>;

std::string attribute(udev_device* device, const char* name)
{
    const char* value = udev_device_get_sysattr_value(device, name);
    return value == nullptr ? "" : value;
}

ViUInt16 number(udev_device* device, const char* name, int base)
{
    return static_cast<ViUInt16>(std::strtoul(attribute(device, name).c_str(), nullptr, base));
}

/// A serial number as resource names can hold it: colons separate their parts.
std::string serialOf(udev_device* device)
{
    constexpr size_t longest = 126; // characters of a USB string
    std::string serial = attribute(device, "serial").substr(0, longest);
    std::replace(serial.begin(), serial.end(), ':', '_');
    return serial;
}

unsigned long nodeNumber(udev_device* node)
{
    const char* number = udev_device_get_sysnum(node);
    return number == nullptr ? 0 : std::strtoul(number, nullptr, 10);
}

bool isSame(const ResourceName& a, const ResourceName& b)
{
    return a.text() == b.text();
}

/// Nothing for a node whose instrument has just been pulled.
void append(std::vector<PluggedIn>& found, udev_device* node)
{
    udev_device* interface =
        udev_device_get_parent_with_subsystem_devtype(node, "usb", "usb_interface");
    udev_device* device = udev_device_get_parent_with_subsystem_devtype(node, "usb", "usb_device");
    const char* path = udev_device_get_devnode(node);
    if (interface == nullptr || device == nullptr || path == nullptr)
        return;
    PluggedIn each;
    ResourceName& name = each.resource.name;
    name.vendor = number(device, "idVendor", 16);
    name.product = number(device, "idProduct", 16);
    name.serial = serialOf(device);
    name.interfaceNumber = number(interface, "bInterfaceNumber", 16);
    name.isInterfaceNamed = name.interfaceNumber != 0;
    const bool isTaken = std::any_of(found.begin(), found.end(), [&](const PluggedIn& other) {
        return isSame(other.resource.name, name);
    });
    if (name.serial.empty() || isTaken)
        name.board = static_cast<ViUInt16>(nodeNumber(node));
    each.resource.maker = attribute(device, "manufacturer");
    each.resource.model = attribute(device, "product");
    each.node = path;
    each.asksForService = number(interface, "bNumEndpoints", 16) > 2;
    found.push_back(std::move(each));
}

} // namespace

std::vector<PluggedIn> pluggedIn()
{
    std::vector<PluggedIn> found;
    const Owned<udev> context(udev_new(), udev_unref);
    const Owned<udev_enumerate> nodes(context ? udev_enumerate_new(context.get()) : nullptr,
                                      udev_enumerate_unref);
    if (!nodes)
        return found;
    udev_enumerate_add_match_subsystem(nodes.get(), "usbmisc");
    udev_enumerate_add_match_sysname(nodes.get(), "usbtmc*");
    udev_enumerate_scan_devices(nodes.get());
    std::vector<Owned<udev_device>> devices;
    for (udev_list_entry* entry = udev_enumerate_get_list_entry(nodes.get()); entry != nullptr;
         entry = udev_list_entry_get_next(entry)) {
        Owned<udev_device> device(
            udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(entry)),
            udev_device_unref);
        if (device)
            devices.push_back(std::move(device));
    }
    std::sort(devices.begin(), devices.end(), [](const auto& a, const auto& b) {
        return nodeNumber(a.get()) < nodeNumber(b.get());
    });
    for (const auto& device : devices)
        append(found, device.get());
    return found;
}
