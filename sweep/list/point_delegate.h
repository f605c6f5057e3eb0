#pragma once

#include <QStyledItemDelegate>

class PointTable;

/// Draws the cells of the list's points, the one reached marked, and edits them as fields of their
/// columns' kinds. The table processes an edited text.
class PointDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PointDelegate(PointTable* table);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    bool isReached(const QModelIndex& index) const;

    PointTable* m_table;
};
