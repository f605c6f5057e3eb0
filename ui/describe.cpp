#include "ui/describe.h"

#include <QWidget>

void describe(QWidget* control, const QString& name, const QString& toolTip)
{
    control->setAccessibleName(name);
    control->setToolTip(toolTip);
}
