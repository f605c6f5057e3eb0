#pragma once

#include <QString>

#include <functional>

class QDialog;
class QWidget;

// The questions asked before a profile file is touched. They wait for nobody: what was chosen comes
// later, and a dialog that is put away says nothing.

using PathChosen = std::function<void(const QString& path)>;

void askProfileToOpen(QWidget* window, const QString& folder, const PathChosen& chosen);

/// Proposes a file name of the present date and time. What is chosen ends in ".xml".
void askProfileToSave(QWidget* window, const QString& folder, const PathChosen& chosen);

/// Asks a yes-or-no question; `confirmed` follows only a yes, which `yesText` words.
void askBefore(QWidget* window, const QString& question, const QString& yesText,
               const std::function<void()>& confirmed);
