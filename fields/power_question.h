#pragma once

#include "ui/panel_dialog.h"

/// Asks whether the level may rise from one power to another, both in dBm. Only the button to raise
/// accepts; Return, Escape and closing do not.
class PowerQuestion : public PanelDialog
{
    Q_OBJECT

public:
    PowerQuestion(double fromDbm, double toDbm, QWidget* parent);
};
