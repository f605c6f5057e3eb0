#include "visa_library/session.h"

#include <algorithm>

namespace
{

// Sessions whose instrument is gone still hold its lock until they are closed.
void releaseLostLocks(Library& library)
{
    for (const auto& session : library.objects.all<Session>())
        if (session->device->isLost())
            session->lock.releaseAll();
}

} // namespace

Session::Session(std::unique_ptr<Device> opened) : device(std::move(opened)), lock(device->lock())
{
}

ViStatus Session::check()
{
    if (device->isLost()) {
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
            std::chrono::steady_clock::now() >= deadline || !call.library.bus.waitsForLocks();
        if (isOver && tries >= triesAtLeast)
            return status;
        call.sleep(std::chrono::milliseconds(1));
        if (device->isLost())
            return VI_ERROR_CONN_LOST;
    }
}

void Session::watchService()
{
    device->watchService([weak = weak_from_this()] {
        VisaCall call(std::nullopt);
        const std::shared_ptr<Session> session = weak.lock();
        if (session != nullptr)
            session->postServiceRequest(call);
        call.closeUnlocked(session);
    });
}

void Session::postServiceRequest(VisaCall& call)
{
    auto event = std::make_shared<EventContext>();
    event->type = VI_EVENT_SERVICE_REQ;
    post(call, event);
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
            VisaCall(std::nullopt).library.objects.remove(context);
        });
    }
}

IoCall::IoCall(ViSession handle, Use use)
    : VisaCall(use), m_session(library.objects.find<Session>(handle))
{
    if (m_session == nullptr) {
        m_status = VI_ERROR_INV_OBJECT;
        return;
    }
    timeoutMs = m_session->timeoutMs;
    const ViStatus begun = m_session->device->begin(*this, use);
    m_status = m_session->check();
    if (m_status == VI_SUCCESS)
        (begun < VI_SUCCESS ? m_status : m_warning) = begun;
}

ViStatus IoCall::send(std::string_view bytes, bool end)
{
    const ViStatus status = m_session->device->write(*this, bytes, end);
    if (m_session->device->takeServiceRequest())
        m_session->postServiceRequest(*this);
    return status;
}

ViStatus IoCall::receive(size_t count, std::string& bytes)
{
    bytes.clear();
    if (count == 0)
        return VI_SUCCESS_MAX_CNT;
    const int stopCharacter = m_session->isTermCharEnabled ? m_session->termChar : -1;
    return m_session->device->read(*this, count, stopCharacter, bytes);
}
