#pragma once

#include "ui/panel_dialog.h"

#include <functional>

/// A question of the program with one way to go on, which has to be chosen: Return and Esc cancel.
/// Accepted or rejected, as any dialog.
class Question : public PanelDialog
{
    Q_OBJECT

public:
    /// `yesText` words the way to go on.
    Question(const QString& title, const QString& text, const QString& yesText, QWidget* parent);
};

/// Asks without blocking; `confirmed` follows only a yes.
Question* askBefore(QWidget* window, const QString& title, const QString& question,
                    const QString& yesText, const std::function<void()>& confirmed);
