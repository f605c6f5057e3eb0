#pragma once

#include <QString>

class QWidget;

/// Describes a control: the accessible name, which is the full one, since the control's
/// surroundings may not be seen, and a tool-tip for the mouse.
void describe(QWidget* control, const QString& name, const QString& toolTip);
