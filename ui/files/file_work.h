#pragma once

#include "ui/files/whole_file.h"

#include <functional>
#include <memory>
#include <optional>

class QWidget;

// Reading and writing that may take its time: a slow disk, a network that has gone. It is done
// beside the window, which waits: for half a second in silence, then with a dialog that shows how
// far it has got and lets the user give it up.

/// Does the work; false when it was given up, or the program is being ended. What was given up may
/// be under way until the system lets go of it, so that `work` owns all that it touches.
bool waitForFileWork(QWidget* window, const QString& what,
                     const std::shared_ptr<FileProgress>& progress,
                     const std::function<void()>& work);

/// What `work` makes of a file; none when it was given up. `what` names the work to the user.
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

/// What `read` makes of the file; none when it was given up.
template <typename Result>
std::optional<Result> readBeside(QWidget* window, const QString& path,
                                 Result (*read)(const QString& path, FileProgress* progress))
{
    const auto work = [path, read](FileProgress* progress) { return read(path, progress); };
    return fileWork<Result>(window, readingWords(path), work);
}

/// writeWholeFile, beside the window.
FileOutcome writeBeside(QWidget* window, const QString& path, const QByteArray& bytes);
