#pragma once

#include <cstddef>
#include <string>

/// The system calls on an open node of the kernel's driver. Each returns what the system returns,
/// or the error number, negative. The driver carries out one call at a time on each instrument:
/// every one of them, closing too, waits for those of other sessions.
class TmcNode
{
public:
    virtual ~TmcNode() = default;
    virtual long write(const void* bytes, size_t count) = 0;
    virtual long read(void* bytes, size_t count) = 0;
    /// One of the requests of linux/usb/tmc.h.
    virtual long control(unsigned long request, void* argument = nullptr) = 0;
};

/// A node of the real driver.
class DriverNode final : public TmcNode
{
public:
    /// To be asked at once: what went wrong is only known then.
    explicit DriverNode(const std::string& path);
    ~DriverNode() override;
    DriverNode(const DriverNode&) = delete;
    DriverNode& operator=(const DriverNode&) = delete;

    /// 0, or the error number of opening, negative.
    long opened() const { return m_descriptor < 0 ? m_descriptor : 0; }
    int descriptor() const { return static_cast<int>(m_descriptor); }
    long write(const void* bytes, size_t count) override;
    long read(void* bytes, size_t count) override;
    long control(unsigned long request, void* argument) override;

private:
    long m_descriptor;
};
