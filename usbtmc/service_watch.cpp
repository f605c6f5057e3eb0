#include "usbtmc/service_watch.h"

#include <cerrno>
#include <linux/usb/tmc.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h> // in which the requests are made
#include <unistd.h>

/// Of the thread's, too: it may outlive the watch by its last steps.
struct ServiceWatch::State {
    State(TmcNode& itsNode, int itsDescriptor, std::function<void()> itsAction)
        : node(itsNode), descriptor(itsDescriptor), onRequest(std::move(itsAction))
    {
    }
    ~State() { close(end); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    TmcNode& node;
    const int descriptor;
    const std::function<void()> onRequest;
    const int end = eventfd(0, EFD_CLOEXEC);
    std::atomic<bool> isOver{false};
    std::atomic<int> statusByte{-1};
};

ServiceWatch::ServiceWatch(TmcNode& node, int descriptor, std::function<void()> onRequest)
    : m_state(std::make_shared<State>(node, descriptor, std::move(onRequest))),
      m_thread([state = m_state] { run(state); })
{
}

ServiceWatch::~ServiceWatch()
{
    m_state->isOver = true;
    eventfd_write(m_state->end, 1);
    if (m_thread.get_id() == std::this_thread::get_id())
        m_thread.detach();
    else
        m_thread.join();
}

int ServiceWatch::takeStatusByte()
{
    return m_state->statusByte.exchange(-1);
}

void ServiceWatch::run(const std::shared_ptr<State>& state)
{
    while (!state->isOver) {
        pollfd waiting[] = {{state->descriptor, POLLPRI, 0}, {state->end, POLLIN, 0}};
        if (poll(waiting, 2, -1) < 0 && errno == EINTR)
            continue;
        if ((waiting[0].revents & POLLPRI) == 0)
            return; // the end, or unplugged
        unsigned char byte = 0;
        const long result = state->node.control(USBTMC_IOCTL_GET_SRQ_STB, &byte);
        if (result == -ENOMSG)
            continue; // its status byte has just been read
        if (result < 0)
            return;
        state->statusByte = byte;
        state->onRequest();
    }
}
