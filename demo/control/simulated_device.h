#pragma once

#include "demo/control/lock_file.h"
#include "demo/control/simulation.h"

/// One session's connection to a simulated instrument: takes the fault that is due at a call, waits
/// for the latency, logs the messages.
class SimulatedDevice final : public Device
{
public:
    SimulatedDevice(Simulation& simulation, std::shared_ptr<Instrument> instrument);

    Resource resource() const override { return resourceOf(m_instrument->model.description); }
    DeviceLock& lock() override { return m_lock; }
    bool isLost() const override;
    ViStatus begin(VisaCall& call, Use use) override;
    ViStatus write(VisaCall& call, std::string_view bytes, bool end) override;
    ViStatus read(VisaCall& call, size_t count, int stopCharacter, std::string& bytes) override;
    void discardReply(VisaCall&) override { m_instrument->output.clear(); }
    ViStatus clear(VisaCall& call) override;
    ViStatus trigger(VisaCall& call) override;
    ViStatus readStatusByte(VisaCall& call, ViUInt16& status) override;
    bool takeServiceRequest() override;

private:
    const std::string& model() const { return m_instrument->model.description.model; }
    ViStatus awaitOutput(VisaCall& call);
    void applyReplyFault();
    ViStatus timeOut(VisaCall& call);

    Simulation& m_simulation;
    const std::shared_ptr<Instrument> m_instrument;
    const unsigned m_plugNumber;
    LockFile m_lock;
    std::optional<Fault> m_fault; ///< of the current call
    std::string m_unlogged;       ///< sent without an end so far
    bool m_isServiceRequested = false;
};
