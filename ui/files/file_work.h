#pragma once

#include "ui/files/whole_file.h"

#include <functional>
#include <memory>
#include <optional>

class QWidget;

// Reading and writing that may take long: a slow disk, a lost network. It runs in another thread
// while the window waits: for half a second silently, then with a dialog that shows the progress
// and lets the user cancel.

/// Does the work; false when it was cancelled, or the program is being ended. Cancelled work may
/// still run until the system call returns, so `work` must own all that it uses.
bool waitForFileWork(QWidget* window, const QString& what,
                     const std::shared_ptr<FileProgress>& progress,
                     const std::function<void()>& work);

/// The result of `work` on a file; none when it was cancelled. `what` names the work to the user.
template <typename Result>
std::optional<Result> fileWork(QWidget* window, const QString& what,
                               const std::function<Result(FileProgress*)>& work)
{
    const auto progress = std::make_shared<FileProgress>();
    const auto result = std::make_shared<Result>();
    const auto run = [progress, result, work] { *result = work(progress.get()); };
    if (!waitForFileWork(window, what, progress, run))
        return std::nullopt;
    return std::move(*result);
}

/// "Reading list.csv"
QString readingWords(const QString& path);

/// The result of `read` on the file; none when it was cancelled.
template <typename Result>
std::optional<Result> readBeside(QWidget* window, const QString& path,
                                 Result (*read)(const QString& path, FileProgress* progress))
{
    const auto work = [path, read](FileProgress* progress) { return read(path, progress); };
    return fileWork<Result>(window, readingWords(path), work);
}

/// writeWholeFile in another thread.
FileOutcome writeBeside(QWidget* window, const QString& path, const QByteArray& bytes);
