#include "visa_library/session.h"

#include <algorithm>

namespace
{

// Sessions whose instrument is gone still hold its lock until they are closed.
void releaseLostLocks(Library& library)
{
    for (const auto& session : library.objects.all<Session>())
        if (session->isLost())
            session->lock.releaseAll();
}

} // namespace

Session::Session(std::shared_ptr<Instrument> what)
    : instrument(std::move(what)), lock(instrument->model.description.serial),
      readBufferMode(VI_FLUSH_DISABLE), writeBufferMode(VI_FLUSH_WHEN_FULL),
      ioProtocol(VI_PROT_NORMAL), m_plugNumber(instrument->plugNumber())
{
}

bool Session::isLost() const
{
    return !instrument->isPresent() || instrument->plugNumber() != m_plugNumber;
}

ViStatus Session::check()
{
    if (isLost()) {
        lock.releaseAll();
        return VI_ERROR_CONN_LOST;
    }
    return lock.isLockedElsewhere() ? VI_ERROR_RSRC_LOCKED : VI_SUCCESS;
}

ViStatus Session::waitForLock(VisaCall& call, ViAccessMode mode, ViUInt32 waitMs,
                              const std::string& key)
{
    releaseLostLocks(call.library);
    const auto deadline = deadlineAfter(waitMs);
    constexpr int triesAtLeast = 3; // another session may just be looking whether it may talk
    for (int tries = 1;; ++tries) {
        const ViStatus status =
            mode == VI_EXCLUSIVE_LOCK ? lock.lockExclusive() : lock.lockShared(key);
        if (status != VI_ERROR_RSRC_LOCKED)
            return status;
        const bool isOver =
            std::chrono::steady_clock::now() >= deadline || !call.library.faults.waitsForTimeouts;
        if (isOver && tries >= triesAtLeast)
            return status;
        call.sleep(std::chrono::milliseconds(1));
        if (isLost())
            return VI_ERROR_CONN_LOST;
    }
}

ViStatus Session::send(VisaCall& call, std::string_view bytes, bool end)
{
    Library& library = call.library;
    m_unlogged += bytes;
    if (end || (!bytes.empty() && bytes.back() == '\n')) {
        library.wire.sent(instrument->model.description.model, m_unlogged);
        m_unlogged.clear();
    }
    instrument->receive(bytes, end, library.faults.replies);
    library.rack.settle(*instrument);

    const bool isRequested = (instrument->statusByte() & 0x40) != 0;
    if (isRequested && !m_isServiceRequested) {
        auto event = std::make_shared<EventContext>();
        event->type = VI_EVENT_SERVICE_REQ;
        post(call, event);
    }
    m_isServiceRequested = isRequested;
    return VI_SUCCESS;
}

ViStatus Session::receive(VisaCall& call, size_t count, std::string& bytes)
{
    bytes.clear();
    if (count == 0)
        return VI_SUCCESS_MAX_CNT;
    ViStatus status = awaitOutput(call);
    if (status != VI_SUCCESS)
        return status;
    OutputQueue& output = instrument->output;
    if (output.isUntouched())
        call.library.wire.received(instrument->model.description.model, output.rest());
    bytes = output.take(count, isTermCharEnabled ? termChar : -1);
    if (isTermCharEnabled && !bytes.empty() && static_cast<ViUInt8>(bytes.back()) == termChar &&
        !output.isEmpty())
        return VI_SUCCESS_TERM_CHAR;
    return output.isEmpty() ? VI_SUCCESS : VI_SUCCESS_MAX_CNT;
}

void Session::post(VisaCall& call, const std::shared_ptr<EventContext>& event)
{
    const unsigned mechanisms = events.enabled[event->type];
    if ((mechanisms & VI_QUEUE) != 0 && events.queue.size() < events.capacity)
        events.queue.push_back(event);
    if ((mechanisms & VI_HNDLR) == 0)
        return;
    Library& library = call.library;
    ViSession handle = VI_NULL;
    for (const SessionEvents::Handler& handler : events.handlers) {
        if (handler.type != event->type)
            continue;
        handle = handle != VI_NULL ? handle : library.objects.handleOf(*this);
        event->owner = handle;
        const ViEvent context = library.objects.add(event);
        call.defer([handler, handle, context] {
            handler.function(handle, handler.type, context, handler.userHandle);
            VisaCall(false).library.objects.remove(context);
        });
    }
}

void Session::clear()
{
    writeBuffer.clear();
    readBuffer.discard();
    m_unlogged.clear();
    instrument->clearInterface();
}

ViStatus Session::awaitOutput(VisaCall& call)
{
    const auto deadline = deadlineAfter(timeoutMs);
    while (instrument->output.isEmpty()) {
        if (isLost())
            return VI_ERROR_CONN_LOST;
        const bool isOver = std::chrono::steady_clock::now() >= deadline;
        if (isOver || !call.library.faults.waitsForTimeouts) {
            call.library.wire.event("timeout");
            instrument->readWithoutQuery();
            return VI_ERROR_TMO;
        }
        call.wait(deadline);
    }
    return VI_SUCCESS;
}

IoCall::IoCall(ViSession handle, Expects expects, Counts counts)
    : m_session(library.objects.find<Session>(handle))
{
    if (counts == Counts::Yes)
        m_fault = library.faults.next();
    if (m_session == nullptr) {
        m_status = VI_ERROR_INV_OBJECT;
        return;
    }
    const Instrument& instrument = *m_session->instrument;
    const unsigned latencyUs = library.faults.latencyUs + instrument.model.description.latencyUs;
    if (latencyUs > 0)
        sleep(std::chrono::microseconds(latencyUs));
    if (m_fault && m_fault->kind == Fault::Kind::Vanish)
        m_session->instrument->unplug();
    m_status = m_session->check();
    if (m_status != VI_SUCCESS || !m_fault || m_fault->status == VI_SUCCESS)
        return;
    if (m_fault->status > VI_SUCCESS)
        m_warning = m_fault->status;
    else if (m_fault->status != VI_ERROR_TMO)
        m_status = m_fault->status;
    else if (expects == Expects::NoReply)
        m_status = timeOut();
}

ViStatus IoCall::send(std::string_view bytes, bool end)
{
    const ViStatus status = m_session->send(*this, bytes, end);
    applyReplyFault();
    return status;
}

ViStatus IoCall::receive(size_t count, std::string& bytes)
{
    applyReplyFault();
    if (m_fault && m_fault->status == VI_ERROR_TMO)
        return timeOut();
    return m_session->receive(*this, count, bytes);
}

// Once: a call that sends and reads, or reads in pieces, comes by more than one time.
void IoCall::applyReplyFault()
{
    if (!m_fault)
        return;
    OutputQueue& output = m_session->instrument->output;
    if (m_fault->kind == Fault::Kind::Reply)
        output.set(m_fault->reply);
    else if (m_fault->kind == Fault::Kind::Endless)
        output.setEndless();
    else
        return;
    m_fault.reset();
}

// The message got through, its reply is lost on the way.
ViStatus IoCall::timeOut()
{
    m_session->instrument->output.clear();
    library.wire.event("timeout");
    if (m_fault->isSlow)
        sleep(std::chrono::milliseconds(m_session->timeoutMs));
    return VI_ERROR_TMO;
}
