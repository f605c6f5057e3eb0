#include "app/end_requests.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <windows.h>

namespace
{
/// The end of the user's session: Qt reports only the question that precedes it, which is left out
/// when the end is forced. Once the message has been answered the process is ended.
class SessionRequests : public EndRequests, public QAbstractNativeEventFilter
{
public:
    SessionRequests() { QCoreApplication::instance()->installNativeEventFilter(this); }

    bool nativeEventFilter(const QByteArray& eventType, void* message, long*) override
    {
        const MSG* event = static_cast<const MSG*>(message);
        if (eventType == "windows_generic_MSG" && event->message == WM_ENDSESSION &&
            event->wParam != 0)
            emit requested();
        return false;
    }
};
} // namespace

std::unique_ptr<EndRequests> createEndRequests()
{
    return std::make_unique<SessionRequests>();
}
