#include "sweep/list/point_delegate.h"

#include "fields/number_edit.h"
#include "numbers/number_text.h"
#include "sweep/list/point_row.h"

#include <QPainter>

namespace
{
constexpr int markSide = 8;
constexpr int markAlpha = 70;

QString shownText(const QModelIndex& index)
{
    const QString text = index.data().toString();
    const QString number = withoutBlanks(text);
    return isPlainDecimal(number) ? grouped(number, pointKind(index.column())) : text;
}
} // namespace

PointDelegate::PointDelegate(const FieldContext& context, QObject* parent)
    : QStyledItemDelegate(parent), m_context(context)
{
}

QWidget* PointDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const
{
    auto* editor = new NumberEdit(pointQuantities[index.column()], m_context, parent);
    editor->setProperty("cellEditor", true);
    editor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    editor->describe();
    return editor;
}

void PointDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    static_cast<NumberEdit*>(editor)->showAccepted(shownText(index));
}

void PointDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const
{
    if (static_cast<NumberEdit*>(editor)->text() != shownText(index))
        QStyledItemDelegate::setModelData(editor, model, index);
}

bool PointDelegate::isReached(const QModelIndex& index) const
{
    return index.row() + 1 == m_reached;
}

void PointDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = shownText(index);
    option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    if (isReached(index)) {
        QColor tint = option->palette.color(QPalette::Link);
        tint.setAlpha(markAlpha);
        option->backgroundBrush = tint;
        option->font.setBold(true);
    }
}

void PointDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!isReached(index) || index.column() != 0)
        return;
    const QRect& cell = option.rect;
    const QPointF tip(cell.left() + 1.5 * markSide, cell.center().y() + 0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(option.palette.color(QPalette::Text));
    painter->drawPolygon(QPolygonF(
        {tip - QPointF(markSide, markSide / 2.0), tip, tip - QPointF(markSide, -markSide / 2.0)}));
    painter->restore();
}
