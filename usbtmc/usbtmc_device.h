#pragma once

#include "usbtmc/node_lock.h"
#include "usbtmc/plugged_in.h"
#include "usbtmc/service_watch.h"
#include "usbtmc/transport.h"
#include "visa_library/library.h"

/// One session's instrument on the kernel's driver. Transfers with the library unlocked, so that
/// nobody waits for this instrument but who uses it.
class UsbtmcDevice final : public Device
{
public:
    UsbtmcDevice(PluggedIn instrument, std::unique_ptr<DriverNode> node,
                 std::shared_ptr<NodeState> state);

    Resource resource() const override { return m_instrument.resource; }
    DeviceLock& lock() override { return m_lock; }
    bool isLost() const override { return m_transport.isLost(); }
    ViStatus start(VisaCall& call) override;
    ViStatus begin(VisaCall&, Use) override { return VI_SUCCESS; }
    ViStatus write(VisaCall& call, std::string_view bytes, bool end) override;
    ViStatus read(VisaCall& call, size_t count, int stopCharacter, std::string& bytes) override;
    void discardReply(VisaCall& call) override;
    ViStatus clear(VisaCall& call) override;
    ViStatus trigger(VisaCall& call) override;
    ViStatus readStatusByte(VisaCall& call, ViUInt16& status) override;
    ViStatus controlRemote(VisaCall& call, ViUInt16 mode) override;
    bool canAskForService() const override { return m_instrument.asksForService; }
    void watchService(const std::function<void()>& onRequest) override;

private:
    template <typename Action>
    ViStatus transfer(VisaCall& call, Action action);

    const PluggedIn m_instrument;
    const std::unique_ptr<DriverNode> m_node;
    NodeLock m_lock;
    std::mutex m_mutex; ///< of the transport, while the library is unlocked
    Transport m_transport;
    std::unique_ptr<ServiceWatch> m_serviceWatch; ///< from the first time that it is wanted
};
