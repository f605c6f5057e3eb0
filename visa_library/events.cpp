// Events: enabling, queueing, handlers.
#include "visa_library/api.h"
#include "visa_library/session.h"

#include <algorithm>

namespace
{

constexpr unsigned anyMechanism = VI_QUEUE | VI_HNDLR | VI_SUSPEND_HNDLR;
const ViEventType knownTypes[] = {VI_EVENT_SERVICE_REQ, VI_EVENT_IO_COMPLETION, VI_EVENT_EXCEPTION,
                                  VI_EVENT_USB_INTR};

bool isKnown(ViEventType type)
{
    return std::find(std::begin(knownTypes), std::end(knownTypes), type) != std::end(knownTypes);
}

/// The start of every function here: the session, and whether type and mechanism are valid.
class EventCall : public VisaCall
{
public:
    EventCall(ViSession handle, ViEventType type, ViUInt16 mechanism, bool isAllAllowed)
        : m_session(library.objects.find<Session>(handle))
    {
        if (m_session == nullptr)
            m_status = VI_ERROR_INV_OBJECT;
        else if (!isKnown(type) && !(isAllAllowed && type == VI_ALL_ENABLED_EVENTS))
            m_status = VI_ERROR_INV_EVENT;
        else if ((mechanism & anyMechanism) == 0)
            m_status = VI_ERROR_INV_MECH;
    }

    ViStatus status() const { return m_status; }
    Session& session() { return *m_session; }
    SessionEvents& events() { return m_session->events; }

private:
    std::shared_ptr<Session> m_session;
    ViStatus m_status = VI_SUCCESS;
};

bool isOf(const EventContext& event, ViEventType type)
{
    return type == VI_ALL_ENABLED_EVENTS || event.type == type;
}

} // namespace

ViStatus KLV_VISA_FIXED viEnableEvent(ViSession session, ViEventType eventType, ViUInt16 mechanism,
                                      ViEventFilter context)
{
    EventCall call(session, eventType, mechanism, true);
    if (call.status() != VI_SUCCESS)
        return call.status();
    if (context != VI_NULL)
        return VI_ERROR_INV_CONTEXT;
    const auto& handlers = call.events().handlers;
    const bool isHandled = std::any_of(
        handlers.begin(), handlers.end(),
        [eventType](const SessionEvents::Handler& row) { return row.type == eventType; });
    if ((mechanism & VI_HNDLR) != 0 && !isHandled)
        return VI_ERROR_HNDLR_NINSTALLED;
    if (eventType == VI_ALL_ENABLED_EVENTS)
        return VI_SUCCESS;
    if (eventType == VI_EVENT_SERVICE_REQ) {
        if (!call.session().device->canAskForService())
            return VI_ERROR_INV_EVENT;
        call.session().watchService();
    }
    unsigned& enabled = call.events().enabled[eventType];
    const bool isNew = (enabled & mechanism) != (mechanism & anyMechanism);
    enabled |= mechanism & anyMechanism;
    return isNew ? VI_SUCCESS : VI_SUCCESS_EVENT_EN;
}

ViStatus KLV_VISA_FIXED viDisableEvent(ViSession session, ViEventType eventType, ViUInt16 mechanism)
{
    EventCall call(session, eventType, mechanism, true);
    if (call.status() != VI_SUCCESS)
        return call.status();
    bool wasEnabled = false;
    for (auto& [type, enabled] : call.events().enabled) {
        if (eventType != VI_ALL_ENABLED_EVENTS && eventType != type)
            continue;
        wasEnabled = wasEnabled || (enabled & mechanism) != 0;
        enabled &= ~static_cast<unsigned>(mechanism);
    }
    return wasEnabled ? VI_SUCCESS : VI_SUCCESS_EVENT_DIS;
}

ViStatus KLV_VISA_FIXED viDiscardEvents(ViSession session, ViEventType eventType,
                                        ViUInt16 mechanism)
{
    EventCall call(session, eventType, mechanism, true);
    if (call.status() != VI_SUCCESS)
        return call.status();
    auto& queue = call.events().queue;
    const auto end = std::remove_if(queue.begin(), queue.end(), [eventType](const auto& event) {
        return isOf(*event, eventType);
    });
    const bool isEmpty = end == queue.end();
    queue.erase(end, queue.end());
    return isEmpty ? VI_SUCCESS_QUEUE_EMPTY : VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viWaitOnEvent(ViSession session, ViEventType eventType, ViUInt32 timeoutMs,
                                      ViPEventType receivedType, ViPEvent context)
{
    EventCall call(session, eventType, VI_QUEUE, true);
    if (call.status() != VI_SUCCESS)
        return call.status();
    SessionEvents& events = call.events();
    const bool isEnabled =
        std::any_of(events.enabled.begin(), events.enabled.end(), [eventType](const auto& row) {
            return (row.second & VI_QUEUE) != 0 &&
                   (eventType == VI_ALL_ENABLED_EVENTS || eventType == row.first);
        });
    if (!isEnabled)
        return VI_ERROR_NENABLED;
    const auto deadline = deadlineAfter(timeoutMs);
    const auto waiting = [&] {
        return std::find_if(events.queue.begin(), events.queue.end(),
                            [eventType](const auto& event) { return isOf(*event, eventType); });
    };
    while (waiting() == events.queue.end()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return VI_ERROR_TMO;
        call.wait(deadline);
    }
    const std::shared_ptr<EventContext> event = *waiting();
    events.queue.erase(waiting());
    if (receivedType != nullptr)
        *receivedType = event->type;
    if (context != nullptr) {
        event->owner = session;
        *context = call.library.objects.add(event);
    }
    return waiting() == events.queue.end() ? VI_SUCCESS : VI_SUCCESS_QUEUE_NEMPTY;
}

ViStatus KLV_VISA_FIXED viInstallHandler(ViSession session, ViEventType eventType, ViHndlr handler,
                                         ViAddr userHandle)
{
    EventCall call(session, eventType, VI_HNDLR, false);
    if (call.status() != VI_SUCCESS)
        return call.status();
    if (handler == nullptr)
        return VI_ERROR_INV_HNDLR_REF;
    call.events().handlers.push_back({eventType, handler, userHandle});
    return VI_SUCCESS;
}

ViStatus KLV_VISA_FIXED viUninstallHandler(ViSession session, ViEventType eventType,
                                           ViHndlr handler, ViAddr userHandle)
{
    EventCall call(session, eventType, VI_HNDLR, false);
    if (call.status() != VI_SUCCESS)
        return call.status();
    auto& handlers = call.events().handlers;
    const auto end = std::remove_if(handlers.begin(), handlers.end(), [=](const auto& row) {
        return row.type == eventType && row.function == handler && row.userHandle == userHandle;
    });
    if (end == handlers.end())
        return VI_ERROR_INV_HNDLR_REF;
    handlers.erase(end, handlers.end());
    return VI_SUCCESS;
}
