#include "demo/control/lock_file.h"

#include <filesystem>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

struct LockFile::Handle {
    HANDLE file = INVALID_HANDLE_VALUE;
};

namespace
{

// Windows locks bind what they cover: a byte far beyond the note leaves the note readable.
OVERLAPPED lockedByte()
{
    OVERLAPPED place = {};
    place.Offset = 1 << 20;
    return place;
}

OVERLAPPED startOfNote()
{
    return {};
}

} // namespace

LockFile::LockFile(const std::string& name) : m_handle(new Handle)
{
    std::error_code error;
    const auto path = std::filesystem::temp_directory_path(error) / ("klv-demo-" + name + ".lock");
    m_handle->file =
        CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

LockFile::~LockFile()
{
    if (m_handle->file != INVALID_HANDLE_VALUE)
        CloseHandle(m_handle->file);
}

bool LockFile::lock(bool isExclusive)
{
    unlock();
    OVERLAPPED place = lockedByte();
    const DWORD kind = isExclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0;
    return LockFileEx(m_handle->file, kind | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}

void LockFile::unlock()
{
    OVERLAPPED place = lockedByte();
    UnlockFileEx(m_handle->file, 0, 1, 0, &place);
}

std::string LockFile::note() const
{
    char text[256];
    DWORD count = 0;
    OVERLAPPED place = startOfNote();
    if (ReadFile(m_handle->file, text, sizeof text, &count, &place) == 0)
        return {};
    return std::string(text, count);
}

void LockFile::setNote(const std::string& text)
{
    SetFilePointer(m_handle->file, 0, nullptr, FILE_BEGIN);
    SetEndOfFile(m_handle->file);
    DWORD count = 0;
    OVERLAPPED place = startOfNote();
    WriteFile(m_handle->file, text.data(), static_cast<DWORD>(text.size()), &count, &place);
}
