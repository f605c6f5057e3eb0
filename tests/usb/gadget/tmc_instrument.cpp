#include "tests/usb/gadget/tmc_instrument.h"

#include <algorithm>
#include <linux/usb/tmc.h>

namespace
{

constexpr size_t headerSize = 12;
constexpr size_t longestMessage = 4 << 20;
// The emulated controller takes shorter transfers into a buffer of its own, where nothing can drop
// them any more: a reply that the host does not want would be the next one's.
constexpr size_t shortestTransfer = 68;
constexpr char messageOut = 1;
constexpr char requestIn = 2;
constexpr char triggerMessage = static_cast<char>(128);
constexpr char endOfMessage = 1;
constexpr char stopsAtCharacter = 2;
constexpr auto retry = std::chrono::milliseconds(5);

uint32_t sizeIn(const std::string& header)
{
    uint32_t size = 0;
    for (size_t i = 4; i > 0; --i)
        size = size << 8 | static_cast<uint8_t>(header[3 + i]);
    return size;
}

void setSize(std::string& header, size_t size)
{
    for (size_t i = 4; i < 8; ++i, size >>= 8)
        header[i] = static_cast<char>(size & 0xff);
}

bool isHeader(const std::string& transfer)
{
    return transfer.size() >= headerSize && transfer[1] == static_cast<char>(~transfer[2]);
}

size_t padded(size_t size)
{
    return (size + 3) & ~size_t{3};
}

std::string pattern(unsigned length)
{
    std::string text;
    for (unsigned i = 0; i < length; ++i)
        text += static_cast<char>('a' + i % 26);
    return text;
}

} // namespace

TmcInstrument::TmcInstrument(Endpoints& endpoints, Simulation& simulation,
                             std::function<void()> moved)
    : m_endpoints(endpoints), m_simulation(simulation), m_moved(std::move(moved))
{
}

void TmcInstrument::enable()
{
    const Lock lock(mutex);
    m_request.reset();
    m_unlogged.clear();
    if (m_receiver.joinable())
        return;
    m_receiver = std::thread(&TmcInstrument::receiveTransfers, this);
    m_sender = std::thread(&TmcInstrument::sendReplies, this);
}

void TmcInstrument::receiveTransfers()
{
    std::string transfer;
    for (;;) {
        transfer.resize(Endpoints::highSpeedPacket);
        const ssize_t count = m_endpoints.receive(transfer.data(), transfer.size());
        transfer.resize(static_cast<size_t>(std::max<ssize_t>(count, 0)));
        if (count < 0) // broken, or unplugged
            std::this_thread::sleep_for(retry);
        else if (!isHeader(transfer))
            m_endpoints.haltOut();
        else if (transfer[0] == requestIn)
            takeRequest(transfer);
        else if (transfer[0] == triggerMessage)
            note("trigger");
        else if (const size_t size = sizeIn(transfer);
                 transfer[0] != messageOut || size > longestMessage)
            m_endpoints.haltOut();
        else if (receiveRest(transfer, padded(headerSize + size)))
            receiveMessage(std::string_view(transfer).substr(headerSize, size),
                           (transfer[8] & endOfMessage) != 0);
    }
}

// False when the host took the message back.
bool TmcInstrument::receiveRest(std::string& transfer, size_t total)
{
    Lock lock(mutex);
    m_isReceiving = true;
    bool isWhole = true;
    while (isWhole && transfer.size() < total) {
        const size_t have = transfer.size();
        const size_t packets = (total - have - 1) / Endpoints::highSpeedPacket + 1;
        transfer.resize(have + std::min<size_t>(packets * Endpoints::highSpeedPacket, 1 << 16));
        lock.unlock();
        const ssize_t count = m_endpoints.receive(transfer.data() + have, transfer.size() - have);
        lock.lock();
        transfer.resize(have + static_cast<size_t>(std::max<ssize_t>(count, 0)));
        isWhole = count >= 0 && !m_isStopping;
    }
    m_isReceiving = false;
    return isWhole;
}

void TmcInstrument::receiveMessage(std::string_view bytes, bool end)
{
    Lock lock(mutex);
    if (faults.vanishAt > 0 && --faults.vanishAt == 0) {
        instrument().unplug();
        m_moved();
        return;
    }
    // A reply that nobody fetched is dropped by the next message.
    stop(lock, m_sender, m_isSending);
    m_request.reset();
    const TmcFaults due = std::exchange(faults, TmcFaults());
    faults.vanishAt = due.vanishAt;
    m_header = due.header;
    m_readyAt = std::chrono::steady_clock::now() + std::chrono::milliseconds(due.lateMs);
    execute(bytes, end);
    if (due.length > 0)
        instrument().output.set(pattern(due.length));
    m_wake.notify_all();
    if (due.halt == "in")
        m_endpoints.haltIn();
    if (due.halt == "out")
        m_endpoints.haltOut();
    lock.unlock();
    std::this_thread::sleep_for(std::chrono::milliseconds(due.deafMs));
}

void TmcInstrument::execute(std::string_view bytes, bool end)
{
    m_unlogged += bytes;
    if (end || (!bytes.empty() && bytes.back() == '\n'))
        m_simulation.wire.sent(instrument().model.description.model, std::exchange(m_unlogged, {}));
    instrument().receive(bytes, end, m_simulation.faults.replies);
    m_simulation.rack.settle(instrument());
    m_moved();
    const unsigned status = instrument().statusByte();
    const bool wasRequested = std::exchange(m_isServiceRequested, (status & 0x40) != 0);
    if (m_isServiceRequested && !wasRequested && m_endpoints.hasInterrupt())
        m_endpoints.notify(0x81, static_cast<uint8_t>(status));
}

void TmcInstrument::takeRequest(const std::string& header)
{
    const Lock lock(mutex);
    const bool isStopping = (header[8] & stopsAtCharacter) != 0;
    m_request = {header[1], sizeIn(header), isStopping ? static_cast<uint8_t>(header[9]) : -1};
    if (instrument().output.isEmpty())
        instrument().readWithoutQuery();
    m_wake.notify_all();
}

void TmcInstrument::sendReplies()
{
    Lock lock(mutex);
    for (;;) {
        m_wake.wait(
            lock, [this] { return m_request && !m_isStopping && !instrument().output.isEmpty(); });
        if (std::chrono::steady_clock::now() < m_readyAt) {
            m_wake.wait_until(lock, m_readyAt);
            continue;
        }
        const std::string transfer = transferFor(*m_request);
        m_request.reset();
        m_isSending = true;
        lock.unlock();
        m_endpoints.send(transfer);
        lock.lock();
        m_isSending = false;
        m_wake.notify_all();
    }
}

std::string TmcInstrument::transferFor(const ReplyRequest& request)
{
    OutputQueue& output = instrument().output;
    if (output.isUntouched())
        m_simulation.wire.received(instrument().model.description.model, output.rest());
    const std::string bytes = output.take(request.size, request.stopCharacter);
    const bool isStopped = static_cast<uint8_t>(bytes.back()) == request.stopCharacter;

    std::string header(headerSize, '\0');
    header[0] = requestIn;
    header[1] = request.tag;
    const std::string fault = std::exchange(m_header, {});
    if (fault == "id")
        header[0] = 126;
    if (fault == "tag")
        header[1] = static_cast<char>(request.tag ^ 0x40);
    header[2] = static_cast<char>(~header[1]);
    setSize(header, fault == "long" ? bytes.size() + 100000 : bytes.size());
    header[8] = static_cast<char>((output.isEmpty() ? endOfMessage : 0) |
                                  (isStopped ? stopsAtCharacter : 0));
    if (fault == "short")
        return header.substr(0, 5);
    std::string transfer = header + bytes;
    transfer.resize(std::max(padded(transfer.size()), shortestTransfer));
    return transfer;
}

// The thread's transfer blocks until the host takes part in it, or a signal breaks it.
void TmcInstrument::stop(Lock& lock, std::thread& thread, const bool& isBusy)
{
    m_isStopping = true;
    while (isBusy) {
        pthread_kill(thread.native_handle(), SIGUSR1);
        m_wake.wait_for(lock, retry);
    }
    m_isStopping = false;
}

void TmcInstrument::request(const usb_ctrlrequest& request)
{
    Lock lock(mutex);
    if (request.bRequest == USBTMC_REQUEST_INITIATE_CLEAR) {
        if (m_receiver.joinable()) {
            stop(lock, m_receiver, m_isReceiving);
            stop(lock, m_sender, m_isSending);
        }
        clear();
    }
    std::string answer = answerTo(request);
    const auto status = static_cast<uint8_t>(instrument().statusByte());
    lock.unlock();
    if (answer.empty()) {
        m_endpoints.refuse(request);
        return;
    }
    answer.resize(std::min<size_t>(answer.size(), request.wLength));
    m_endpoints.answer(answer);
    // With an interrupt endpoint the status byte comes by that.
    if (request.bRequest == USBTMC488_REQUEST_READ_STATUS_BYTE && m_endpoints.hasInterrupt())
        m_endpoints.notify(static_cast<uint8_t>(0x80 | request.wValue), status);
}

void TmcInstrument::clear()
{
    m_request.reset();
    m_unlogged.clear();
    m_header.clear();
    instrument().clearInterface();
    m_simulation.wire.event("clear");
}

void TmcInstrument::note(const char* what)
{
    const Lock lock(mutex);
    m_simulation.wire.event(what);
    instrument().triggerFromBus();
}

// Empty: refused.
std::string TmcInstrument::answerTo(const usb_ctrlrequest& request)
{
    std::string answer(1, USBTMC_STATUS_SUCCESS);
    const bool hasInterrupt = m_endpoints.hasInterrupt();
    switch (request.bRequest) {
    case USBTMC_REQUEST_GET_CAPABILITIES:
        answer.resize(24);
        answer[3] = 1; // of the standard's version 1.00
        answer[5] = 1; // may stop at a character
        answer[13] = 1;
        answer[14] = USBTMC488_CAPABILITY_TRIGGER | USBTMC488_CAPABILITY_REN_CONTROL |
                     USBTMC488_CAPABILITY_488_DOT_2;
        answer[15] = hasInterrupt ? 0x0f : 0x0d;
        return answer;
    case USBTMC_REQUEST_CHECK_CLEAR_STATUS:
        return answer + '\0';
    case USBTMC488_REQUEST_READ_STATUS_BYTE:
        answer += static_cast<char>(request.wValue);
        return answer + static_cast<char>(hasInterrupt ? 0U : instrument().statusByte());
    case USBTMC488_REQUEST_REN_CONTROL:
        m_simulation.wire.event("remote", std::to_string(request.wValue));
        return answer;
    case USBTMC488_REQUEST_GOTO_LOCAL:
        m_simulation.wire.event("local");
        return answer;
    case USBTMC488_REQUEST_LOCAL_LOCKOUT:
        m_simulation.wire.event("lockout");
        return answer;
    default:
        return request.bRequest == USBTMC_REQUEST_INITIATE_CLEAR ? answer : std::string();
    }
}
