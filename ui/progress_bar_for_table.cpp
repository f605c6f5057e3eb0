#include "ui/progress_bar_for_table.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionProgressBar>

namespace
{
constexpr int veilOpacity = 216; // of 255
constexpr int margin = 24;
constexpr int barHeight = 16;
constexpr int textGap = 8;

const QString barName = QStringLiteral("progressBarForTable");
} // namespace

progressBarForTable::progressBarForTable(int maximum, QWidget* table) : QProgressBar(table)
{
    setObjectName(barName);
    setAccessibleName(tr("Progress"));
    setToolTip(tr("Progress of the table"));
    setRange(0, maximum);
    setValue(0);
    setFormat(QString());
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_NoMousePropagation);
    table->installEventFilter(this);
    setGeometry(table->rect());
    raise();
    show();
}

bool progressBarForTable::liesWithin(const QWidget& place)
{
    return place.findChild<QWidget*>(barName) != nullptr;
}

void progressBarForTable::advance()
{
    setValue(value() + 1);
}

void progressBarForTable::showText(const QString& text)
{
    setFormat(text);
}

void progressBarForTable::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QColor veil = palette().color(QPalette::Window);
    veil.setAlpha(veilOpacity);
    painter.fillRect(rect(), veil);

    QStyleOptionProgressBar option;
    initStyleOption(&option);
    option.textVisible = false;
    // Without steps the style would animate the bar for ever.
    option.maximum = qMax(option.maximum, 1);
    option.rect = QRect(margin, (height() - barHeight) / 2, width() - 2 * margin, barHeight);
    style()->drawControl(QStyle::CE_ProgressBar, &option, &painter, this);

    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(0, 0, width(), option.rect.top() - textGap),
                     Qt::AlignHCenter | Qt::AlignBottom, format());
}

bool progressBarForTable::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QProgressBar::eventFilter(watched, event);
}
