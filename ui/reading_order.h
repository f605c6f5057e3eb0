#pragma once

#include <QList>

class QWidget;

/// All that Tab may stop at in a widget, whether shown and enabled or not, in the order in which
/// the eye reads: as the layouts have it, grids row by row. What no layout holds follows in the
/// order of its making.
QList<QWidget*> stopsInReadingOrder(QWidget& root);

/// Has Tab follow that order from now on.
void tabInReadingOrder(QWidget& root);
