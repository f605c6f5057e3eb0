#include "demo/control/simulated_device.h"
#include "visa_library/library.h"

namespace
{

/// The bus of this process's simulated instruments.
class SimulatedBus final : public Bus
{
public:
    std::vector<Resource> resources() const override
    {
        std::vector<Resource> found;
        for (const auto& instrument : m_simulation.rack.instruments())
            if (instrument->isPresent())
                found.push_back(resourceOf(instrument->model.description));
        return found;
    }

    ViStatus open(VisaCall& call, const ResourceName& name,
                  std::unique_ptr<Device>& device) override
    {
        Faults& faults = m_simulation.faults;
        const auto fault = faults.next();
        if (faults.latencyUs > 0)
            call.sleep(std::chrono::microseconds(faults.latencyUs));
        auto instrument = m_simulation.rack.find(name.serial);
        const bool isThere = instrument != nullptr && instrument->isPresent() &&
                             resourceOf(instrument->model.description).name.text() == name.text();
        if (isThere && fault && fault->kind == Fault::Kind::Vanish)
            instrument->unplug();
        if (fault && fault->status < VI_SUCCESS)
            return fault->status;
        if (!isThere || !instrument->isPresent())
            return VI_ERROR_RSRC_NFOUND;
        device = std::make_unique<SimulatedDevice>(m_simulation, std::move(instrument));
        return fault ? fault->status : VI_SUCCESS;
    }

    bool waitsForLocks() const override { return m_simulation.faults.waitsForTimeouts; }

    void callBegins(Use use) override
    {
        ++m_simulation.callCount;
        m_simulation.rack.refresh();
        m_simulation.dueFault = use == Use::Other ? std::nullopt : m_simulation.faults.next();
    }

    void note(std::string_view what, std::string_view detail) override
    {
        m_simulation.wire.event(what, detail);
    }

    const AttributeReply* replacedAttribute(ViAttr attribute) const override
    {
        const auto& replaced = m_simulation.faults.attributes;
        const auto found = replaced.find(attribute);
        return found == replaced.end() ? nullptr : &found->second;
    }

private:
    Simulation& m_simulation = theSimulation();
};

const LibraryBus libraryBus([]() -> Bus& {
    static SimulatedBus bus;
    return bus;
});

} // namespace
