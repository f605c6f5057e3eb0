#include "fields/keypad/keypad_place.h"

#include <algorithm>

namespace
{
constexpr int gap = 8;

int within(int wanted, int size, int from, int extent)
{
    return std::max(std::min(wanted, from + extent - size), from);
}
} // namespace

QPoint placeBeside(const QRect& field, const QSize& window, const QRect& screen)
{
    const auto inside = [&](const QPoint& wanted) {
        return QPoint(within(wanted.x(), window.width(), screen.x(), screen.width()),
                      within(wanted.y(), window.height(), screen.y(), screen.height()));
    };
    const int rightEdge = field.x() + field.width();
    const int bottomEdge = field.y() + field.height();
    const QPoint candidates[] = {
        {rightEdge - window.width(), bottomEdge + gap},
        {rightEdge - window.width(), field.y() - gap - window.height()},
        {rightEdge + gap, field.y()},
        {field.x() - gap - window.width(), field.y()},
    };
    for (const QPoint& candidate : candidates) {
        const QPoint place = inside(candidate);
        if (!QRect(place, window).intersects(field))
            return place;
    }
    return inside(candidates[0]);
}
