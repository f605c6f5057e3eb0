#pragma once

#include "usbtmc/driver_node.h"
#include "visa/visa.h"

#include <atomic>
#include <memory>
#include <string_view>

/// What the sessions of this process know together about one node.
struct NodeState {
    /// Something may be on its way that is not meant for the next message: what a predecessor has
    /// left, the rest of a transfer that failed.
    std::atomic<bool> isUnsettled{true};
};

/// Messages over a node of the kernel's USB-TMC driver. Knows what the driver leaves to its
/// callers: where a reply ends, and how a transfer that failed is kept from spoiling the next one.
/// One thread at a time; only isLost may be asked by others.
class Transport
{
public:
    Transport(TmcNode& node, std::shared_ptr<NodeState> state)
        : m_node(node), m_state(std::move(state))
    {
    }

    /// In milliseconds; the driver knows none below 100.
    ViStatus setTimeout(ViUInt32 timeoutMs);
    /// Clears the instrument where something may be left on its way.
    ViStatus settle();
    /// Sends bytes, after settling; end marks the end of the message.
    ViStatus write(std::string_view bytes, bool end);
    /// Appends at most count bytes, up to and with the stop character where it is 0 to 255.
    /// VI_SUCCESS with the end of the message, VI_SUCCESS_TERM_CHAR, VI_SUCCESS_MAX_CNT, or errors.
    ViStatus read(size_t count, int stopCharacter, std::string& bytes);
    ViStatus clear();
    ViStatus trigger();
    ViStatus readStatusByte(ViUInt16& status);
    /// By the modes of viGpibControlREN.
    ViStatus controlRemote(ViUInt16 mode);
    /// Unplugged; the node stays dead when the instrument is back.
    bool isLost() const { return m_isLost; }

private:
    ViStatus fail(long error);
    ViStatus control(unsigned long request, void* argument = nullptr);
    ViStatus cureHalt(unsigned long request);
    ViStatus setEnd(bool end);
    ViStatus fetch(size_t count);

    TmcNode& m_node;
    const std::shared_ptr<NodeState> m_state;
    ViUInt32 m_timeoutMs = 0;
    bool m_isEndSent = true;
    std::string m_fetched; ///< and not yet read
    bool m_isFetchedToEnd = false;
    std::atomic<bool> m_isLost{false};
};
