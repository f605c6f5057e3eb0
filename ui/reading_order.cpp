#include "ui/reading_order.h"

#include "ui/arrow_keys.h"

#include <QAbstractItemView>
#include <QGridLayout>
#include <QSet>
#include <QWidget>

#include <algorithm>

namespace
{
QList<QLayoutItem*> itemsOf(QLayout& layout)
{
    QList<QLayoutItem*> items;
    for (int index = 0; index < layout.count(); ++index)
        items << layout.itemAt(index);
    const auto* grid = qobject_cast<QGridLayout*>(&layout);
    if (!grid)
        return items;
    const auto cellOf = [grid, &layout](QLayoutItem* item) {
        int row = 0;
        int column = 0;
        int span = 0;
        grid->getItemPosition(layout.indexOf(item), &row, &column, &span, &span);
        return std::pair(row, column);
    };
    std::stable_sort(items.begin(), items.end(), [&](QLayoutItem* first, QLayoutItem* second) {
        return cellOf(first) < cellOf(second);
    });
    return items;
}

class Reader
{
public:
    QList<QWidget*> stops;

    void read(QWidget& widget)
    {
        if (m_seen.contains(&widget) || widget.isWindow())
            return;
        m_seen << &widget;
        // Of buttons that share one stop, any may become it.
        if (widget.focusPolicy() & Qt::TabFocus || ArrowKeys::moveAt(widget))
            stops << &widget;
        // The parts of a table are its own.
        if (qobject_cast<QAbstractItemView*>(&widget))
            return;
        if (QLayout* layout = widget.layout())
            read(*layout);
        const QObjectList& children = widget.children();
        for (QObject* child : children) {
            if (child->isWidgetType())
                read(static_cast<QWidget&>(*child));
        }
    }

private:
    void read(QLayout& layout)
    {
        const QList<QLayoutItem*> items = itemsOf(layout);
        for (QLayoutItem* item : items) {
            if (item->widget())
                read(*item->widget());
            else if (item->layout())
                read(*item->layout());
        }
    }

    QSet<const QWidget*> m_seen;
};
} // namespace

QList<QWidget*> stopsInReadingOrder(QWidget& root)
{
    Reader reader;
    reader.read(root);
    return reader.stops;
}

void tabInReadingOrder(QWidget& root)
{
    const QList<QWidget*> stops = stopsInReadingOrder(root);
    for (int index = 1; index < stops.size(); ++index)
        QWidget::setTabOrder(stops.at(index - 1), stops.at(index));
}
