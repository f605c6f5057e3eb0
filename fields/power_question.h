#pragma once

#include "ui/panel_dialog.h"

/// Asks whether the level may rise from one power to another, both in dBm. Raising accepts it;
/// Return, Escape and closing it do not.
class PowerQuestion : public PanelDialog
{
    Q_OBJECT

public:
    PowerQuestion(double fromDbm, double toDbm, QWidget* parent);
};
