#pragma once

#include <QString>

#include <functional>

class QWidget;

// The questions asked before a file is touched. They do not block: the choice is reported when the
// dialog has closed, and a cancelled dialog reports nothing.

using FileChosen = std::function<void(const QString& path)>;

struct FileQuestion {
    QString title;
    QString folder; ///< where the dialog opens
    QString filter; ///< of names, as QFileDialog takes it
    QString proposedName{};
    /// Completes a path to save to as it was typed: adds the suffix. Without it the dialog adds
    /// that of the chosen type.
    QString (*completed)(const QString& path) = nullptr;
};

void askFileToOpen(QWidget* window, const FileQuestion& question, const FileChosen& chosen);

/// Also asks before a file is replaced whose name the dialog did not know.
void askFileToSave(QWidget* window, const FileQuestion& question, const FileChosen& chosen);
