#pragma once

#include <QString>

class QWidget;

/// How a control says what it is: the accessible name, which is the full one, as for somebody who
/// does not see where the control stands, and a tool-tip for those who point at it.
void describe(QWidget* control, const QString& name, const QString& toolTip);
