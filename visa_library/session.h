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
class Session : public Object, public std::enable_shared_from_this<Session>
{
public:
    explicit Session(std::unique_ptr<Device> opened);

    /// VI_SUCCESS, VI_ERROR_CONN_LOST or VI_ERROR_RSRC_LOCKED (by another session).
    ViStatus check();
    /// Takes the lock that viOpen or viLock ask for, waiting for it as long as they allow.
    /// VI_ERROR_RSRC_LOCKED when it was not released.
    ViStatus waitForLock(VisaCall& call, ViAccessMode mode, ViUInt32 waitMs,
                         const std::string& key);
    /// From now on the instrument's requests for service become events.
    void watchService();
    void postServiceRequest(VisaCall& call);
    /// Queues an event and has its handlers called, where it is enabled.
    void post(VisaCall& call, const std::shared_ptr<EventContext>& event);

    const std::unique_ptr<Device> device;
    ResourceLock lock;
    SessionEvents events;
    std::string writeBuffer;
    ReadBuffer readBuffer;
    ViUInt32 readBufferSize = 4096;
    ViUInt32 writeBufferSize = 4096;
    ViUInt16 readBufferMode = VI_FLUSH_DISABLE;
    ViUInt16 writeBufferMode = VI_FLUSH_WHEN_FULL;
    ViUInt16 ioProtocol = VI_PROT_NORMAL;
    ViUInt32 timeoutMs = 2000;
    ViUInt8 termChar = '\n';
    bool isTermCharEnabled = false;
    bool isEndSent = true;
    bool isEndSuppressed = false;
    bool isFileAppended = false;
    ViJobId lastJob = 0;
};

/// A call that talks to an instrument: finds the session and whether it may go on, transfers
/// messages and reports requests for service; it does not format.
class IoCall : public VisaCall
{
public:
    IoCall(ViSession handle, Use use);
    /// The session may have been closed in the meantime.
    ~IoCall() { closeUnlocked(std::move(m_session)); }

    /// VI_SUCCESS when the call may continue.
    ViStatus status() const { return m_status; }
    /// What the call returns after it went on: a warning of the device replaces success.
    ViStatus outcome(ViStatus status) const { return status == VI_SUCCESS ? m_warning : status; }
    Session& session() { return *m_session; }
    /// Sends bytes to the instrument at once; end marks the end of the message.
    ViStatus send(std::string_view bytes, bool end);
    /// Reads at most count bytes, waiting for them at most the time-out of the session.
    /// VI_SUCCESS with the end of the message, VI_SUCCESS_TERM_CHAR, VI_SUCCESS_MAX_CNT, or errors.
    ViStatus receive(size_t count, std::string& bytes);

private:
    std::shared_ptr<Session> m_session;
    ViStatus m_status = VI_SUCCESS;
    ViStatus m_warning = VI_SUCCESS;
};
