#include "tests/fuzz/fuzz.h"

#include "sweep/list/list_file.h"
#include "tests/fuzz/memory_file.h"

/// A list file of any bytes: refused as a whole, or the rows that were read are the same after
/// writing and reading.
void run(Bytes bytes)
{
    static const MemoryFile file;
    const QByteArray input = QByteArray::fromStdString(bytes.rest());
    file.set(input);
    const ReadList read = readListFile(file.path);
    if (read.error != ListFileError::None) {
        PROMISE(read.rows.empty());
        return;
    }
    file.set(listText(read.rows));
    const ReadList again = readListFile(file.path);
    constexpr int longLine = 4000;
    PROMISE(input.size() > longLine ||
            (again.error == ListFileError::None && again.rows == read.rows));
}
