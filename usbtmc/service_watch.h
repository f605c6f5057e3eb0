#pragma once

#include "usbtmc/driver_node.h"

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

/// Waits, on a thread of its own, for an instrument to ask for service, until it is destroyed or
/// the instrument is pulled.
class ServiceWatch
{
public:
    /// The node, with its descriptor, is alive as long as this. `onRequest` is called on the thread
    /// and may even destroy this.
    ServiceWatch(TmcNode& node, int descriptor, std::function<void()> onRequest);
    /// Waits for a call that the thread is in, and the driver for calls on the instrument.
    ~ServiceWatch();
    ServiceWatch(const ServiceWatch&) = delete;
    ServiceWatch& operator=(const ServiceWatch&) = delete;

    /// The status byte with which the instrument asked last, once; negative when it has not.
    int takeStatusByte();

private:
    struct State;
    static void run(const std::shared_ptr<State>& state);

    const std::shared_ptr<State> m_state;
    std::thread m_thread;
};
