#include "tests/fuzz/fuzz.h"

#include "sweep/list/list_file.h"
#include "tests/fuzz/memory_file.h"

/// A list file of any bytes: refused as a whole, or the rows that were read are the same after
/// writing and reading.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    file.set(reinterpret_cast<const char*>(data), size);
    const ReadList read = readListFile(file.path);
    if (read.error != ListFileError::None) {
        PROMISE(read.rows.empty());
        return 0;
    }
    const QByteArray text = listText(read.rows);
    file.set(text.constData(), static_cast<std::size_t>(text.size()));
    const ReadList again = readListFile(file.path);
    constexpr std::size_t longLine = 4000;
    PROMISE(size > longLine || (again.error == ListFileError::None && again.rows == read.rows));
    return 0;
}
