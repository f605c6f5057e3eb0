#pragma once

#include <memory>

/// The instrument's USB driver as the system knows it after its installation, for as long as this
/// lives; the program connects by itself then. Linux needs none.
class InstalledDriver
{
public:
    /// Windows asks for an administrator's rights.
    InstalledDriver();
    ~InstalledDriver();

private:
    struct Entry;

    std::unique_ptr<Entry> m_entry;
};
