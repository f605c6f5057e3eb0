#pragma once

#include "visa_library/library.h"
#include "visa_library/resource_lock.h"

#include <deque>

/// The events of one session: what is enabled, who handles it, what waits in the queue.
struct SessionEvents {
    struct Handler {
        ViEventType type;
        ViHndlr function;
        ViAddr userHandle;
    };
    std::unordered_map<ViEventType, unsigned> enabled; ///< mechanisms by type
    std::vector<Handler> handlers;
    std::deque<std::shared_ptr<EventContext>> queue;
    ViUInt32 capacity = 50;
};

/// What was read from the instrument and not yet scanned.
struct ReadBuffer {
    std::string bytes;
    size_t position = 0;
    bool isEnd = false; ///< the message ends with the last of the bytes

    bool isEmpty() const { return position == bytes.size(); }
    void discard() { *this = ReadBuffer(); }
};

/// One open connection to an instrument: its attributes, locks, events and formatted I/O buffers.
/// It moves messages, logs them and knows when the connection is lost; it does not format.
class Session : public Object
{
public:
    explicit Session(std::shared_ptr<Instrument> what);

    /// VI_SUCCESS, VI_ERROR_CONN_LOST or VI_ERROR_RSRC_LOCKED (by another session).
    ViStatus check();
    bool isLost() const;
    /// Takes the lock that viOpen or viLock ask for, waiting for it as long as they may.
    /// VI_ERROR_RSRC_LOCKED when it did not come free.
    ViStatus waitForLock(VisaCall& call, ViAccessMode mode, ViUInt32 waitMs,
                         const std::string& key);
    /// Sends bytes to the instrument at once; end marks the end of the message.
    ViStatus send(VisaCall& call, std::string_view bytes, bool end);
    /// Reads at most count bytes, waiting for them at most the time-out of the session.
    /// VI_SUCCESS with the end of the message, VI_SUCCESS_TERM_CHAR, VI_SUCCESS_MAX_CNT, or errors.
    ViStatus receive(VisaCall& call, size_t count, std::string& bytes);
    /// Queues an event and has its handlers called, where it is enabled.
    void post(VisaCall& call, const std::shared_ptr<EventContext>& event);
    /// Drops all that is on its way, in the session's buffers and the instrument's.
    void clear();

    const std::shared_ptr<Instrument> instrument;
    ResourceLock lock;
    SessionEvents events;
    std::string writeBuffer;
    ReadBuffer readBuffer;
    ViUInt32 readBufferSize = 4096;
    ViUInt32 writeBufferSize = 4096;
    ViUInt16 readBufferMode;
    ViUInt16 writeBufferMode;
    ViUInt16 ioProtocol;
    ViUInt32 timeoutMs = 2000;
    ViUInt8 termChar = '\n';
    bool isTermCharEnabled = false;
    bool isEndSent = true;
    bool isEndSuppressed = false;
    bool isFileAppended = false;
    ViJobId lastJob = 0;

private:
    ViStatus awaitOutput(VisaCall& call);

    const unsigned m_plugNumber;
    std::string m_unlogged; ///< sent without an end so far
    bool m_isServiceRequested = false;
};

/// A call that talks to an instrument: finds the session, lets the latency pass, and takes the
/// fault that is due at it.
class IoCall : public VisaCall
{
public:
    enum class Expects { NoReply, Reply };
    enum class Counts { Yes, No }; ///< whether faults count it

    IoCall(ViSession handle, Expects expects, Counts counts = Counts::Yes);

    /// VI_SUCCESS when the call may go on.
    ViStatus status() const { return m_status; }
    /// What the call returns after it went on: a warning that a fault asks for replaces success.
    ViStatus outcome(ViStatus status) const { return status == VI_SUCCESS ? m_warning : status; }
    Session& session() { return *m_session; }
    /// Sends; a reply that a fault asks for then takes the place of the instrument's.
    ViStatus send(std::string_view bytes, bool end);
    ViStatus receive(size_t count, std::string& bytes);

private:
    void applyReplyFault();
    ViStatus timeOut();

    std::shared_ptr<Session> m_session;
    std::optional<Fault> m_fault;
    ViStatus m_status = VI_SUCCESS;
    ViStatus m_warning = VI_SUCCESS;
};
