#include "usbtmc/usbtmc_device.h"

#include <cerrno>
#include <map>
#include <strings.h>
#include <sys/stat.h>

namespace
{

ViStatus statusOfOpening(long error)
{
    switch (-error) {
    case 0:
        return VI_SUCCESS;
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return VI_ERROR_RSRC_NFOUND;
    case EACCES:
    case EPERM:
        return VI_ERROR_NPERMISSION;
    case EBUSY:
        return VI_ERROR_RSRC_BUSY;
    default:
        return VI_ERROR_SYSTEM_ERROR;
    }
}

/// Names are the same in any case.
bool isSame(const ResourceName& a, const ResourceName& b)
{
    return a.board == b.board && a.vendor == b.vendor && a.product == b.product &&
           a.interfaceNumber == b.interfaceNumber &&
           strcasecmp(a.serial.c_str(), b.serial.c_str()) == 0;
}

/// The bus of the instruments that the kernel's USB-TMC driver has bound.
class UsbtmcBus final : public Bus
{
public:
    std::vector<Resource> resources() const override
    {
        std::vector<Resource> found;
        for (PluggedIn& each : pluggedIn())
            found.push_back(std::move(each.resource));
        return found;
    }

    ViStatus open(VisaCall& call, const ResourceName& name,
                  std::unique_ptr<Device>& device) override
    {
        for (PluggedIn& each : pluggedIn())
            if (isSame(each.resource.name, name))
                return open(call, std::move(each), device);
        return VI_ERROR_RSRC_NFOUND;
    }

private:
    ViStatus open(VisaCall& call, PluggedIn instrument, std::unique_ptr<Device>& device)
    {
        std::unique_ptr<DriverNode> node;
        call.unlocked([&] { node = std::make_unique<DriverNode>(instrument.node); });
        const ViStatus status = statusOfOpening(node->opened());
        if (status == VI_SUCCESS) {
            auto state = stateOf(node->descriptor());
            device = std::make_unique<UsbtmcDevice>(std::move(instrument), std::move(node),
                                                    std::move(state));
        }
        return status;
    }

    /// The same for all sessions that have this node open. A node that comes after it with the same
    /// name is another file.
    std::shared_ptr<NodeState> stateOf(int descriptor)
    {
        struct stat file = {};
        fstat(descriptor, &file);
        std::weak_ptr<NodeState>& known = m_states[{file.st_dev, file.st_ino}];
        std::shared_ptr<NodeState> state = known.lock();
        if (state == nullptr)
            known = state = std::make_shared<NodeState>();
        return state;
    }

    std::map<std::pair<dev_t, ino_t>, std::weak_ptr<NodeState>> m_states;
};

const LibraryBus libraryBus([]() -> Bus& {
    static UsbtmcBus bus;
    return bus;
});

} // namespace
