#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>

class QFile;

// The one way in which the program's own files are read and written. Anything but a regular file,
// or a link to one, is refused: a pipe or a device could block its reader for ever.

/// The progress of reading or writing. Watched, and cancelled, from another thread.
struct FileProgress {
    std::atomic<qint64> done{0};  ///< bytes
    std::atomic<qint64> total{0}; ///< bytes; 0 while it is not known
    std::atomic<bool> isCancelled{false};
};

enum class FileFault { None, Missing, NotRegular, NotOpened, TooLarge, Failed, Cancelled };

struct FileOutcome {
    FileFault fault = FileFault::None;
    QString systemText{}; ///< of a fault that the system has found

    /// The fault for the user to read, in the current language; empty after Cancelled.
    QString detail() const;
};

struct FileBytes : FileOutcome {
    QByteArray bytes; ///< empty after a fault
};

/// Opens the file for reading, and begins to count its bytes where a progress is given.
FileOutcome openToRead(QFile& file, FileProgress* progress = nullptr);

/// Opens or creates the file for writing behind its end, each piece at once.
FileOutcome openToAppend(QFile& file);

/// All of a file of at most `mostBytes`.
FileBytes readWholeFile(const QString& path, qint64 mostBytes, FileProgress* progress = nullptr);

/// Writes beside the target and renames into place: whatever happens, also with a full disk, there
/// is a complete file, the new one or the old one. After a fault it is the old one.
FileOutcome writeWholeFile(const QString& path, const QByteArray& bytes,
                           FileProgress* progress = nullptr);
