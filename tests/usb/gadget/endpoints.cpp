#include "tests/usb/gadget/endpoints.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/usb/ch9.h>
#include <system_error>
#include <unistd.h>

namespace
{

constexpr uint8_t testAndMeasurement = 3; ///< the subclass
constexpr uint8_t usb488 = 1;             ///< the protocol

[[noreturn]] void fail(const std::string& what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

template <typename Number>
std::string littleEndian(Number number)
{
    std::string bytes;
    for (size_t i = 0; i < sizeof number; ++i)
        bytes += static_cast<char>(number >> (8 * i) & 0xff);
    return bytes;
}

std::string endpoint(int address, int type, uint16_t packet, int interval)
{
    return std::string{USB_DT_ENDPOINT_SIZE, USB_DT_ENDPOINT, static_cast<char>(address),
                       static_cast<char>(type)} +
           littleEndian(packet) + static_cast<char>(interval);
}

std::string interfaceAt(uint16_t packet, bool hasInterrupt)
{
    const int count = hasInterrupt ? 3 : 2;
    return std::string{USB_DT_INTERFACE_SIZE,
                       USB_DT_INTERFACE,
                       0,
                       0,
                       static_cast<char>(count),
                       static_cast<char>(USB_CLASS_APP_SPEC),
                       testAndMeasurement,
                       usb488,
                       1} +
           endpoint(1 | USB_DIR_OUT, USB_ENDPOINT_XFER_BULK, packet, 0) +
           endpoint(2 | USB_DIR_IN, USB_ENDPOINT_XFER_BULK, packet, 0) +
           (hasInterrupt ? endpoint(3 | USB_DIR_IN, USB_ENDPOINT_XFER_INT, 8, 7) : "");
}

// Magic number and length come first.
void describe(int file, uint32_t magic, const std::string& rest)
{
    const std::string bytes =
        littleEndian(magic) + littleEndian(static_cast<uint32_t>(rest.size() + 8)) + rest;
    if (write(file, bytes.data(), bytes.size()) < 0)
        fail("descriptors");
}

int openFile(const std::string& path)
{
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0)
        fail(path);
    return file;
}

} // namespace

Endpoints::Endpoints(const std::string& folder, bool hasInterrupt)
    : m_control(openFile(folder + "/ep0"))
{
    const uint32_t count = hasInterrupt ? 4 : 3;
    const uint32_t speeds = FUNCTIONFS_HAS_FS_DESC | FUNCTIONFS_HAS_HS_DESC;
    describe(m_control, FUNCTIONFS_DESCRIPTORS_MAGIC_V2,
             littleEndian(speeds) + littleEndian(count) + littleEndian(count) +
                 interfaceAt(64, hasInterrupt) + interfaceAt(highSpeedPacket, hasInterrupt));
    constexpr uint16_t english = 0x409;
    describe(m_control, FUNCTIONFS_STRINGS_MAGIC,
             littleEndian(uint32_t{1}) + littleEndian(uint32_t{1}) + littleEndian(english) +
                 std::string("Instrument") + '\0');
    m_out = openFile(folder + "/ep1");
    m_in = openFile(folder + "/ep2");
    if (hasInterrupt)
        m_interrupt = openFile(folder + "/ep3");
}

usb_functionfs_event Endpoints::nextEvent()
{
    usb_functionfs_event event = {};
    while (read(m_control, &event, sizeof event) != static_cast<ssize_t>(sizeof event))
        if (errno != EINTR)
            fail("event");
    return event;
}

ssize_t Endpoints::receive(char* bytes, size_t count)
{
    return read(m_out, bytes, count);
}

bool Endpoints::send(std::string_view bytes)
{
    const bool isSent =
        write(m_in, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    if (!isSent || bytes.empty() || bytes.size() % highSpeedPacket != 0)
        return isSent;
    // Full to the last packet: an empty one is the end.
    return write(m_in, bytes.data(), 0) == 0;
}

void Endpoints::notify(uint8_t tag, uint8_t status)
{
    const uint8_t bytes[] = {tag, status};
    if (write(m_interrupt, bytes, sizeof bytes) < 0)
        perror("interrupt");
}

void Endpoints::answer(std::string_view bytes)
{
    if (write(m_control, bytes.data(), bytes.size()) < 0)
        perror("answer");
}

// A transfer in the wrong direction halts the endpoint and fails.
void Endpoints::refuse(const usb_ctrlrequest& request)
{
    char none = 0;
    const bool isIn = (request.bRequestType & USB_DIR_IN) != 0;
    [[maybe_unused]] const ssize_t failed =
        isIn ? read(m_control, &none, 0) : write(m_control, &none, 0);
}

void Endpoints::haltIn()
{
    char none = 0;
    [[maybe_unused]] const ssize_t failed = read(m_in, &none, 1);
}

void Endpoints::haltOut()
{
    const char none = 0;
    [[maybe_unused]] const ssize_t failed = write(m_out, &none, 1);
}
