#include "app/end_requests.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace
{
constexpr std::array<int, 3> endSignals = {SIGTERM, SIGHUP, SIGINT};

/// The end of the pipe that the handler writes to.
int signalled = -1;

// Little else is allowed in a signal handler.
void handleSignal(int)
{
    const int before = errno;
    const char byte = 0;
    // A full pipe already holds the news.
    [[maybe_unused]] const ssize_t written = write(signalled, &byte, 1);
    errno = before;
}

/// Signals reach the event loop through a pipe.
class SignalRequests : public EndRequests
{
public:
    SignalRequests();
    ~SignalRequests() override;

private:
    void takeSignals();

    std::array<int, 2> m_pipe{-1, -1};
    std::array<struct sigaction, endSignals.size()> m_before{};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

SignalRequests::SignalRequests()
{
    if (pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    signalled = m_pipe[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SignalRequests::takeSignals);
    struct sigaction handler = {};
    handler.sa_handler = handleSignal;
    // System calls that the VISA library waits in are restarted.
    handler.sa_flags = SA_RESTART;
    for (std::size_t index = 0; index < endSignals.size(); ++index) {
        sigaction(endSignals.at(index), nullptr, &m_before.at(index));
        // Started by nohup, the program is to outlive its terminal.
        const bool isUnwanted =
            endSignals.at(index) == SIGHUP && m_before.at(index).sa_handler == SIG_IGN;
        if (!isUnwanted)
            sigaction(endSignals.at(index), &handler, nullptr);
    }
}

SignalRequests::~SignalRequests()
{
    if (!m_notifier)
        return;
    for (std::size_t index = 0; index < endSignals.size(); ++index)
        sigaction(endSignals.at(index), &m_before.at(index), nullptr);
    m_notifier.reset();
    for (const int end : m_pipe)
        close(end);
}

void SignalRequests::takeSignals()
{
    std::array<char, 16> bytes{};
    while (read(m_pipe[0], bytes.data(), bytes.size()) > 0) {
    }
    emit requested();
}
} // namespace

std::unique_ptr<EndRequests> createEndRequests()
{
    return std::make_unique<SignalRequests>();
}
