#include "demo/control/lock_file.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <unistd.h>

struct LockFile::Handle {
    int descriptor = -1;
};

LockFile::LockFile(const std::string& name) : m_handle(new Handle)
{
    std::error_code error;
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    std::filesystem::path path = folder == nullptr ? "" : folder;
    if (!path.empty())
        std::filesystem::create_directories(path, error);
    if (path.empty() || !std::filesystem::is_directory(path, error))
        path = std::filesystem::temp_directory_path(error);
    path /= "klv-demo-" + std::to_string(getuid()) + "-" + name + ".lock";
    // Closed on exec: a child process must not keep the lock alive.
    m_handle->descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
}

LockFile::~LockFile()
{
    if (m_handle->descriptor >= 0)
        close(m_handle->descriptor);
}

bool LockFile::lock(bool isExclusive)
{
    if (m_handle->descriptor < 0)
        return true; // no folder to write to: nobody could be kept out
    if (flock(m_handle->descriptor, (isExclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0)
        return true;
    unlock();
    return false;
}

void LockFile::unlock()
{
    flock(m_handle->descriptor, LOCK_UN);
}

std::string LockFile::note() const
{
    char text[256];
    const ssize_t count = pread(m_handle->descriptor, text, sizeof text, 0);
    return count > 0 ? std::string(text, static_cast<size_t>(count)) : std::string();
}

void LockFile::setNote(const std::string& text)
{
    if (ftruncate(m_handle->descriptor, 0) == 0 &&
        pwrite(m_handle->descriptor, text.data(), text.size(), 0) < 0)
        unlock();
}
