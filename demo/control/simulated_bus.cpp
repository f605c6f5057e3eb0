#include "demo/control/simulated_bus.h"

#include "demo/control/simulated_device.h"
#include "visa_library/library.h"

std::vector<Resource> SimulatedBus::resources() const
{
    std::vector<Resource> found;
    for (const auto& instrument : rack.instruments())
        if (instrument->isPresent())
            found.push_back(resourceOf(instrument->model.description));
    return found;
}

ViStatus SimulatedBus::open(VisaCall& call, const ResourceName& name,
                            std::unique_ptr<Device>& device)
{
    const auto fault = faults.next();
    if (faults.latencyUs > 0)
        call.sleep(std::chrono::microseconds(faults.latencyUs));
    auto instrument = rack.find(name.serial);
    const bool isThere = instrument != nullptr && instrument->isPresent() &&
                         resourceOf(instrument->model.description).name.text() == name.text();
    if (isThere && fault && fault->kind == Fault::Kind::Vanish)
        instrument->unplug();
    if (fault && fault->status < VI_SUCCESS)
        return fault->status;
    if (!isThere || !instrument->isPresent())
        return VI_ERROR_RSRC_NFOUND;
    device = std::make_unique<SimulatedDevice>(*this, std::move(instrument));
    return fault ? fault->status : VI_SUCCESS;
}

void SimulatedBus::callBegins(Use use)
{
    ++callCount;
    rack.refresh();
    dueFault = use == Use::Other ? std::nullopt : faults.next();
}

const AttributeReply* SimulatedBus::replacedAttribute(ViAttr attribute) const
{
    const auto found = faults.attributes.find(attribute);
    return found == faults.attributes.end() ? nullptr : &found->second;
}

SimulatedBus& simulatedBus()
{
    static SimulatedBus bus;
    return bus;
}

Bus& theBus()
{
    return simulatedBus();
}

Resource resourceOf(const InstrumentDescription& description)
{
    return {{0, 0x5645, 0x0040, description.serial, 0}, description.maker, description.model};
}
