#pragma once

#include "demo/control/simulation.h"
#include "tests/usb/gadget/endpoints.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// What goes wrong with messages that are still to come; all but the last with the next one.
struct TmcFaults {
    std::string header;    ///< of its reply: a wrong "tag" or "id", "long" or "short"
    std::string halt;      ///< after it: "in" or "out"
    unsigned lateMs = 0;   ///< its reply comes so much later
    unsigned deafMs = 0;   ///< nothing is taken for so long afterwards
    unsigned length = 0;   ///< its reply is of so many bytes, "abc...xyzabc..."
    unsigned vanishAt = 0; ///< the instrument is unplugged at the message of this number
};

/// A simulated instrument behind the USB-TMC protocol, with the subclass USB488.
class TmcInstrument
{
public:
    /// moved: called with the mutex locked when the instrument may have left the bus or come back.
    TmcInstrument(Endpoints& endpoints, Simulation& simulation, std::function<void()> moved);

    /// The host has configured the interface.
    void enable();
    void request(const usb_ctrlrequest& request);

    /// To be held by whoever touches the simulation or the faults.
    std::mutex mutex;
    TmcFaults faults;

private:
    using Lock = std::unique_lock<std::mutex>;

    struct ReplyRequest {
        char tag;
        uint32_t size;
        int stopCharacter;
    };

    Instrument& instrument() { return *m_simulation.rack.first(); }
    void receiveTransfers();
    void receiveMessage(std::string_view bytes, bool end);
    bool receiveRest(std::string& transfer, size_t total);
    void takeRequest(const std::string& header);
    void execute(std::string_view bytes, bool end);
    void sendReplies();
    std::string transferFor(const ReplyRequest& request);
    /// Ends what is under way; false in a message of which a part is still to come.
    void stop(Lock& lock, std::thread& thread, const bool& isBusy);
    std::string answerTo(const usb_ctrlrequest& request);
    void clear();
    void note(const char* what);

    Endpoints& m_endpoints;
    Simulation& m_simulation;
    const std::function<void()> m_moved;
    std::condition_variable m_wake;
    std::thread m_receiver;
    std::thread m_sender;
    std::optional<ReplyRequest> m_request;           ///< of the host, not yet answered
    std::string m_unlogged;                          ///< received without an end so far
    std::string m_header;                            ///< what is wrong with the next reply
    std::chrono::steady_clock::time_point m_readyAt; ///< of the reply
    bool m_isSending = false;
    bool m_isReceiving = false; ///< amid a message of several transfers
    bool m_isStopping = false;
    bool m_isServiceRequested = false;
};
