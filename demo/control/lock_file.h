#pragma once

#include <memory>
#include <string>

/// A file of this user that sessions of any process lock, one handle per session. Never waits.
class LockFile
{
public:
    /// The name is turned into a file name in the user's run-time or temporary folder.
    explicit LockFile(const std::string& name);
    ~LockFile();
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    /// Takes the lock, or changes the one held; on failure none is held.
    bool lock(bool isExclusive);
    void unlock();
    /// A note that the holders of the lock share.
    std::string note() const;
    void setNote(const std::string& text);

private:
    struct Handle;
    std::unique_ptr<Handle> m_handle;
};
