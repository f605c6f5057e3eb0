#include "usbtmc/node_lock.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/file.h>
#include <unistd.h>

namespace
{

std::string noteFileOf(const std::string& node)
{
    std::error_code error;
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    const std::filesystem::path path =
        folder != nullptr ? folder : std::filesystem::temp_directory_path(error);
    const std::string name = std::filesystem::path(node).filename();
    return path / ("klv-" + std::to_string(getuid()) + "-" + name + ".key");
}

} // namespace

NodeLock::NodeLock(int descriptor, const std::string& node)
    : m_descriptor(descriptor), m_noteFile(noteFileOf(node))
{
}

bool NodeLock::lock(bool isExclusive)
{
    if (flock(m_descriptor, (isExclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0)
        return true;
    unlock();
    return false;
}

void NodeLock::unlock()
{
    flock(m_descriptor, LOCK_UN);
}

std::string NodeLock::note() const
{
    std::ifstream file(m_noteFile, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void NodeLock::setNote(const std::string& text)
{
    std::ofstream(m_noteFile, std::ios::binary | std::ios::trunc) << text;
}
