#pragma once

#include "visa_library/bus.h"

/// The lock of a node, honoured by the sessions of all processes that ask for it; the driver itself
/// keeps nobody out. It ends with the node's descriptor.
class NodeLock final : public DeviceLock
{
public:
    /// The descriptor stays open as long as the lock is used. The note of its holders is kept in a
    /// file of this user named after the node.
    NodeLock(int descriptor, const std::string& node);

    bool lock(bool isExclusive) override;
    void unlock() override;
    std::string note() const override;
    void setNote(const std::string& text) override;

private:
    const int m_descriptor;
    const std::string m_noteFile;
};
