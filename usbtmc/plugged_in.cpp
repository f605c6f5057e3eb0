#include "usbtmc/plugged_in.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{

/// The driver's nodes; each has its USB interface for "device", and that in the USB device.
constexpr char nodesFolder[] = "/sys/class/usbmisc";
constexpr std::string_view nodePrefix = "usbtmc";

/// Of a folder in sysfs, without the end of its line; empty where it is not told.
std::string attribute(const std::string& folder, const char* name)
{
    std::string value;
    std::getline(std::ifstream(folder + name), value);
    return value;
}

ViUInt16 number(const std::string& folder, const char* name)
{
    return static_cast<ViUInt16>(std::strtoul(attribute(folder, name).c_str(), nullptr, 16));
}

/// A serial number as resource names can hold it: colons separate their parts.
std::string serialOf(const std::string& device)
{
    constexpr size_t longest = 126; // characters of a USB string
    std::string serial = attribute(device, "serial").substr(0, longest);
    std::replace(serial.begin(), serial.end(), ':', '_');
    return serial;
}

std::vector<unsigned long> nodeNumbers()
{
    std::vector<unsigned long> numbers;
    std::error_code error;
    using std::filesystem::directory_iterator;
    for (directory_iterator entry(nodesFolder, error); !error && entry != directory_iterator();
         entry.increment(error)) {
        const std::string name = entry->path().filename();
        if (name.compare(0, nodePrefix.size(), nodePrefix) == 0)
            numbers.push_back(std::strtoul(name.c_str() + nodePrefix.size(), nullptr, 10));
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

bool isSame(const ResourceName& a, const ResourceName& b)
{
    return a.text() == b.text();
}

/// Nothing for a node whose instrument has just been pulled.
void append(std::vector<PluggedIn>& found, unsigned long nodeNumber)
{
    const std::string node = std::string(nodePrefix) + std::to_string(nodeNumber);
    const std::string interface = std::string(nodesFolder) + '/' + node + "/device/";
    const std::string device = interface + "../";
    PluggedIn each;
    ResourceName& name = each.resource.name;
    name.vendor = number(device, "idVendor");
    if (name.vendor == 0)
        return;
    name.product = number(device, "idProduct");
    name.serial = serialOf(device);
    name.interfaceNumber = number(interface, "bInterfaceNumber");
    name.isInterfaceNamed = name.interfaceNumber != 0;
    const bool isTaken = std::any_of(found.begin(), found.end(), [&](const PluggedIn& other) {
        return isSame(other.resource.name, name);
    });
    if (name.serial.empty() || isTaken)
        name.board = static_cast<ViUInt16>(nodeNumber);
    each.resource.maker = attribute(device, "manufacturer");
    each.resource.model = attribute(device, "product");
    each.node = "/dev/" + node;
    each.asksForService = number(interface, "bNumEndpoints") > 2;
    // Pulled meanwhile, it was read in part.
    if (number(device, "idVendor") == name.vendor)
        found.push_back(std::move(each));
}

} // namespace

std::vector<PluggedIn> pluggedIn()
{
    std::vector<PluggedIn> found;
    for (const unsigned long nodeNumber : nodeNumbers())
        append(found, nodeNumber);
    return found;
}
