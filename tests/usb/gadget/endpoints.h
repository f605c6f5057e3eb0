#pragma once

#include <linux/usb/functionfs.h>

#include <csignal>
#include <cstdint>
#include <string>
#include <string_view>

/// The USB side of an instrument: one interface for test and measurement in a FunctionFS that is
/// mounted at a folder. Transfers block; a SIGUSR1 to the thread breaks them with EINTR.
class Endpoints
{
public:
    static constexpr size_t highSpeedPacket = 512;

    /// Describes the interface to the kernel. Throws std::system_error.
    Endpoints(const std::string& folder, bool hasInterrupt);

    bool hasInterrupt() const { return m_interrupt >= 0; }
    usb_functionfs_event nextEvent();

    /// Bytes read, or -1.
    ssize_t receive(char* bytes, size_t count);
    bool send(std::string_view bytes);
    void notify(uint8_t tag, uint8_t status);
    /// Answers a request of the host, or refuses it.
    void answer(std::string_view bytes);
    void refuse(const usb_ctrlrequest& request);
    void haltIn();
    void haltOut();

private:
    int m_control = -1;
    int m_out = -1;
    int m_in = -1;
    int m_interrupt = -1;
};
