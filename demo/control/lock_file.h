#pragma once

#include "visa_library/bus.h"

/// A file of this user that sessions of any process lock, one handle per session. Never waits.
class LockFile final : public DeviceLock
{
public:
    /// The name is turned into a file name in the user's run-time or temporary folder.
    explicit LockFile(const std::string& name);
    ~LockFile() override;
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    bool lock(bool isExclusive) override;
    void unlock() override;
    std::string note() const override;
    void setNote(const std::string& text) override;

private:
    struct Handle;
    std::unique_ptr<Handle> m_handle;
};
