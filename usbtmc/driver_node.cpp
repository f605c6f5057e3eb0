#include "usbtmc/driver_node.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace
{

template <typename Call>
long outcome(Call call)
{
    long result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result < 0 ? -errno : result;
}

} // namespace

DriverNode::DriverNode(const std::string& path)
    : m_descriptor(outcome([&] { return open(path.c_str(), O_RDWR | O_CLOEXEC); }))
{
}

DriverNode::~DriverNode()
{
    if (m_descriptor >= 0)
        close(descriptor());
}

long DriverNode::write(const void* bytes, size_t count)
{
    return outcome([&] { return ::write(descriptor(), bytes, count); });
}

long DriverNode::read(void* bytes, size_t count)
{
    return outcome([&] { return ::read(descriptor(), bytes, count); });
}

long DriverNode::control(unsigned long request, void* argument)
{
    return outcome([&] { return ioctl(descriptor(), request, argument); });
}
