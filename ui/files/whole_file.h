#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>

class QFile;

// The one way in which the program's own files are read and written. What is not a regular file, or
// a link to one, is refused: a pipe or a device could keep its reader waiting for ever.

/// How far a reading or writing has got. Watched, and cancelled, from another thread.
struct FileProgress {
    std::atomic<qint64> done{0};  ///< bytes
    std::atomic<qint64> total{0}; ///< bytes; 0 while it is not known
    std::atomic<bool> isCancelled{false};
};

enum class FileFault { None, Missing, NotRegular, NotOpened, TooLarge, Failed, Cancelled };

struct FileOutcome {
    FileFault fault = FileFault::None;
    QString detail; ///< of a fault, for the user to read; empty after Cancelled
};

struct FileBytes : FileOutcome {
    QByteArray bytes; ///< empty after a fault
};

/// Opens the file for reading, and begins to count its bytes where a progress is given.
FileOutcome openToRead(QFile& file, FileProgress* progress = nullptr);

/// All of a file of at most `mostBytes`.
FileBytes readWholeFile(const QString& path, qint64 mostBytes, FileProgress* progress = nullptr);

/// Writes beside the target and renames into place: whatever happens, a full disk too, there is a
/// whole file there, the new one or the old one. There is no new one after a fault.
FileOutcome writeWholeFile(const QString& path, const QByteArray& bytes,
                           FileProgress* progress = nullptr);
