#include "usbtmc/usbtmc_device.h"

namespace
{
/// Longer replies are not read only to be dropped.
constexpr size_t longestRest = 1 << 20;
} // namespace

UsbtmcDevice::UsbtmcDevice(PluggedIn instrument, std::unique_ptr<DriverNode> node,
                           std::shared_ptr<NodeState> state)
    : m_instrument(std::move(instrument)), m_node(std::move(node)),
      m_lock(m_node->descriptor(), m_instrument.node), m_transport(*m_node, std::move(state))
{
}

template <typename Action>
ViStatus UsbtmcDevice::transfer(VisaCall& call, Action action)
{
    ViStatus status = VI_SUCCESS;
    call.unlocked([&] {
        const std::lock_guard<std::mutex> guard(m_mutex);
        status = m_transport.setTimeout(call.timeoutMs);
        if (status == VI_SUCCESS)
            status = action();
    });
    return status;
}

// An instrument that does not answer now may do so later: its session is opened all the same.
ViStatus UsbtmcDevice::start(VisaCall& call)
{
    const ViStatus status = transfer(call, [this] { return m_transport.settle(); });
    return status == VI_SUCCESS || isLost() ? status : VI_SUCCESS_DEV_NPRESENT;
}

ViStatus UsbtmcDevice::write(VisaCall& call, std::string_view bytes, bool end)
{
    return transfer(call, [&] { return m_transport.write(bytes, end); });
}

// Received apart: while the library is unlocked, what is the session's may be looked at by others.
ViStatus UsbtmcDevice::read(VisaCall& call, size_t count, int stopCharacter, std::string& bytes)
{
    std::string received;
    const ViStatus status =
        transfer(call, [&] { return m_transport.read(count, stopCharacter, received); });
    bytes = std::move(received);
    return status;
}

void UsbtmcDevice::discardReply(VisaCall& call)
{
    std::string dropped;
    if (read(call, longestRest, -1, dropped) == VI_SUCCESS_MAX_CNT)
        clear(call);
}

ViStatus UsbtmcDevice::clear(VisaCall& call)
{
    return transfer(call, [this] { return m_transport.clear(); });
}

ViStatus UsbtmcDevice::trigger(VisaCall& call)
{
    return transfer(call, [this] { return m_transport.trigger(); });
}

// The byte with which the instrument asked for service comes first: the watch has taken it.
ViStatus UsbtmcDevice::readStatusByte(VisaCall& call, ViUInt16& status)
{
    const int asked = m_serviceWatch ? m_serviceWatch->takeStatusByte() : -1;
    ViUInt16 byte = static_cast<ViUInt16>(asked);
    const ViStatus outcome =
        asked >= 0 ? VI_SUCCESS : transfer(call, [&] { return m_transport.readStatusByte(byte); });
    if (outcome == VI_SUCCESS)
        status = byte;
    return outcome;
}

ViStatus UsbtmcDevice::controlRemote(VisaCall& call, ViUInt16 mode)
{
    return transfer(call, [this, mode] { return m_transport.controlRemote(mode); });
}

void UsbtmcDevice::watchService(const std::function<void()>& onRequest)
{
    if (!m_serviceWatch)
        m_serviceWatch = std::make_unique<ServiceWatch>(*m_node, m_node->descriptor(), onRequest);
}
