#pragma once

#include <QStyledItemDelegate>

struct FieldContext;

/// Draws the cells of the list's points, the one reached marked, and edits them as fields of their
/// columns' kinds. Digits are shown grouped, however a file has written them; the cell keeps its
/// text until it is edited. The table processes an edited text.
class PointDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    PointDelegate(const FieldContext& context, QObject* parent);

    /// The point, counted from 1, that a run has reached; 0 for none.
    int reached() const { return m_reached; }
    void setReached(int number) { m_reached = number; }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    bool isReached(const QModelIndex& index) const;

    const FieldContext& m_context;
    int m_reached = 0;
};
