#pragma once

#include "demo/control/faults.h"
#include "demo/control/rack.h"
#include "demo/control/wire_log.h"

/// The bus of this process's simulated instruments, with the faults that tests order and the record
/// of the traffic.
class SimulatedBus final : public Bus
{
public:
    std::vector<Resource> resources() const override;
    ViStatus open(VisaCall& call, const ResourceName& name,
                  std::unique_ptr<Device>& device) override;
    bool waitsForLocks() const override { return faults.waitsForTimeouts; }
    void callBegins(Use use) override;
    void note(std::string_view what, std::string_view detail) override { wire.event(what, detail); }
    const AttributeReply* replacedAttribute(ViAttr attribute) const override;

    Rack rack;
    Faults faults;
    WireLog wire;
    std::optional<Fault> dueFault; ///< at the call that has just begun
    unsigned long long callCount = 0;
};

SimulatedBus& simulatedBus();

Resource resourceOf(const InstrumentDescription& description);
