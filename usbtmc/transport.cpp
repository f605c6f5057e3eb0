#include "usbtmc/transport.h"

#include <algorithm>
#include <cerrno>
#include <linux/usb/tmc.h>
#include <sys/ioctl.h> // in which the requests are made

namespace
{

constexpr ViUInt32 shortestTimeoutMs = 100;
// With its header a reply of this length stays below 4096 bytes. At a multiple of that the driver
// leaves an empty packet behind, which it takes for the next reply.
constexpr size_t longestPiece = 4080;

bool isUnplugged(long error)
{
    constexpr long errors[] = {-ENODEV, -ESHUTDOWN, -EPROTO, -EILSEQ, -ENXIO};
    return std::find(std::begin(errors), std::end(errors), error) != std::end(errors);
}

ViStatus statusOf(long error)
{
    switch (-error) {
    case ETIMEDOUT:
        return VI_ERROR_TMO;
    case EINVAL:  // the instrument's capabilities lack it
    case EBADRQC: // the driver lacks it
    case ENOTTY:
    case EOPNOTSUPP:
        return VI_ERROR_NSUP_OPER;
    default:
        return VI_ERROR_IO;
    }
}

} // namespace

ViStatus Transport::setTimeout(ViUInt32 timeoutMs)
{
    timeoutMs = std::max(timeoutMs, shortestTimeoutMs);
    if (timeoutMs == m_timeoutMs)
        return VI_SUCCESS;
    const ViStatus status = control(USBTMC_IOCTL_SET_TIMEOUT, &timeoutMs);
    if (status == VI_SUCCESS)
        m_timeoutMs = timeoutMs;
    return status;
}

ViStatus Transport::settle()
{
    return m_state->isUnsettled ? clear() : VI_SUCCESS;
}

ViStatus Transport::write(std::string_view bytes, bool end)
{
    m_fetched.clear();
    m_isFetchedToEnd = false;
    ViStatus status = settle();
    if (status == VI_SUCCESS)
        status = setEnd(end);
    while (status == VI_SUCCESS && !bytes.empty()) {
        const long written = m_node.write(bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<size_t>(written));
        else
            status = written == -EPIPE ? cureHalt(USBTMC_IOCTL_CLEAR_OUT_HALT) : fail(written);
    }
    return status;
}

ViStatus Transport::read(size_t count, int stopCharacter, std::string& bytes)
{
    const size_t last = bytes.size() + count;
    while (bytes.size() < last) {
        if (m_fetched.empty()) {
            const ViStatus status = fetch(last - bytes.size());
            if (status != VI_SUCCESS)
                return status;
        }
        size_t taken = std::min(m_fetched.size(), last - bytes.size());
        const size_t stop = stopCharacter < 0 ? std::string::npos
                                              : m_fetched.find(static_cast<char>(stopCharacter));
        const bool isStopped = stop < taken;
        if (isStopped)
            taken = stop + 1;
        bytes.append(m_fetched, 0, taken);
        m_fetched.erase(0, taken);
        if (m_fetched.empty() && m_isFetchedToEnd)
            return VI_SUCCESS;
        if (isStopped)
            return VI_SUCCESS_TERM_CHAR;
    }
    return VI_SUCCESS_MAX_CNT;
}

ViStatus Transport::clear()
{
    m_fetched.clear();
    m_isFetchedToEnd = false;
    m_state->isUnsettled = true;
    const ViStatus status = control(USBTMC_IOCTL_CLEAR);
    if (status == VI_SUCCESS)
        m_state->isUnsettled = false;
    return status;
}

ViStatus Transport::trigger()
{
    return control(USBTMC488_IOCTL_TRIGGER);
}

ViStatus Transport::readStatusByte(ViUInt16& status)
{
    // Some kernels succeed by one of these requests without storing the byte.
    constexpr unsigned char unlikely = 0xFF;
    unsigned char byte = unlikely;
    ViStatus outcome = control(USBTMC488_IOCTL_READ_STB, &byte);
    if (outcome == VI_SUCCESS && byte == unlikely)
        control(USBTMC_IOCTL_GET_STB, &byte);
    if (outcome == VI_SUCCESS)
        status = byte;
    return outcome;
}

ViStatus Transport::controlRemote(ViUInt16 mode)
{
    unsigned char off = 0;
    unsigned char on = 1;
    ViStatus status = VI_SUCCESS;
    switch (mode) {
    case VI_GPIB_REN_DEASSERT_GTL:
        status = control(USBTMC488_IOCTL_GOTO_LOCAL);
        [[fallthrough]];
    case VI_GPIB_REN_DEASSERT:
        return status == VI_SUCCESS ? control(USBTMC488_IOCTL_REN_CONTROL, &off) : status;
    case VI_GPIB_REN_ASSERT:
    case VI_GPIB_REN_ASSERT_ADDRESS:
        return control(USBTMC488_IOCTL_REN_CONTROL, &on);
    case VI_GPIB_REN_ASSERT_LLO:
    case VI_GPIB_REN_ASSERT_ADDRESS_LLO:
        status = control(USBTMC488_IOCTL_REN_CONTROL, &on);
        return status == VI_SUCCESS ? control(USBTMC488_IOCTL_LOCAL_LOCKOUT) : status;
    case VI_GPIB_REN_ADDRESS_GTL:
        return control(USBTMC488_IOCTL_GOTO_LOCAL);
    default:
        return VI_ERROR_INV_MODE;
    }
}

// What a transfer was doing when it failed is not known: the next message starts afresh.
ViStatus Transport::fail(long error)
{
    m_state->isUnsettled = true;
    m_isLost = m_isLost || isUnplugged(error);
    if (m_isLost)
        return VI_ERROR_CONN_LOST;
    return error == -ETIMEDOUT ? VI_ERROR_TMO : VI_ERROR_IO;
}

ViStatus Transport::control(unsigned long request, void* argument)
{
    if (m_isLost)
        return VI_ERROR_CONN_LOST;
    const long result = m_node.control(request, argument);
    if (result >= 0)
        return VI_SUCCESS;
    m_isLost = isUnplugged(result);
    return m_isLost ? VI_ERROR_CONN_LOST : statusOf(result);
}

ViStatus Transport::cureHalt(unsigned long request)
{
    control(request);
    clear();
    return m_isLost ? VI_ERROR_CONN_LOST : VI_ERROR_IO;
}

ViStatus Transport::setEnd(bool end)
{
    if (end == m_isEndSent)
        return VI_SUCCESS;
    unsigned char isEnabled = end ? 1 : 0;
    const ViStatus status = control(USBTMC_IOCTL_EOM_ENABLE, &isEnabled);
    if (status == VI_SUCCESS)
        m_isEndSent = end;
    return status;
}

ViStatus Transport::fetch(size_t count)
{
    if (m_isLost)
        return VI_ERROR_CONN_LOST;
    const size_t asked = std::min(count, longestPiece);
    m_fetched.resize(asked);
    const long received = m_node.read(m_fetched.data(), asked);
    m_fetched.resize(static_cast<size_t>(std::clamp<long>(received, 0, static_cast<long>(asked))));
    if (received == -EPIPE)
        return cureHalt(USBTMC_IOCTL_CLEAR_IN_HALT);
    // Nothing is how the driver tells a reply that it does not understand.
    if (received <= 0)
        return fail(received);
    unsigned char attributes = 0;
    const long asksAttributes = m_node.control(USBTMC_IOCTL_MSG_IN_ATTR, &attributes);
    m_isFetchedToEnd = asksAttributes >= 0 ? (attributes & 1) != 0 : m_fetched.size() < asked;
    return VI_SUCCESS;
}
