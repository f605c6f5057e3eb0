#include "ui/resources.h"

#include <QtCore/qglobal.h>

void loadUiResources()
{
    Q_INIT_RESOURCE(klv_ui);
}
