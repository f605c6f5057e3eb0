#include "ui/whole_grid.h"

#include <QPaintEvent>
#include <QTableView>

namespace
{
class WholeGrid : public QObject
{
public:
    explicit WholeGrid(QWidget* viewport) : QObject(viewport)
    {
        viewport->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted(*static_cast<QWidget*>(watched), static_cast<QPaintEvent*>(event)->rect());
        return false;
    }

private:
    /// What was asked for counts as whole, whatever part of it is visible.
    void painted(QWidget& viewport, const QRect& part)
    {
        m_isAsked = !m_isAsked && part != viewport.rect() && viewport.devicePixelRatioF() > 1.0;
        if (m_isAsked)
            viewport.update();
    }

    bool m_isAsked = false;
};
} // namespace

void keepGridWhole(QTableView& table)
{
    new WholeGrid(table.viewport());
}
