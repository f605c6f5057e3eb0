#pragma once

#include "ui/panel_dialog.h"

/// The small box that shows one error message over the whole program until it is closed.
/// It is shown without waiting and deletes itself when closed.
class ErrorBox : public PanelDialog
{
    Q_OBJECT

public:
    explicit ErrorBox(const QString& message, QWidget* parent = nullptr);

    /// Makes a box and shows it; returns at once.
    static ErrorBox* report(const QString& message, QWidget* parent);
};
