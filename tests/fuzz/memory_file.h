#pragma once

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

/// A file that is not on the disk, for code that reads by path.
struct MemoryFile {
    const int descriptor = memfd_create("fuzz", 0);
    const QString path = QStringLiteral("/proc/self/fd/%1").arg(descriptor);

    void set(const QByteArray& bytes) const
    {
        if (ftruncate(descriptor, 0) != 0 ||
            pwrite(descriptor, bytes.constData(), std::size_t(bytes.size()), 0) != bytes.size())
            std::abort();
    }
};
