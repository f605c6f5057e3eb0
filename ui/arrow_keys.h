#pragma once

#include <QObject>
#include <QVector>

class QAbstractButton;
class QWidget;

/// Makes a block of buttons one stop of Tab, the one that was checked or had the focus last; the
/// arrow keys move the focus among them and press none.
class ArrowKeys : public QObject
{
    Q_OBJECT

public:
    /// `buttons` row by row, `columns` in each row. `parent` is their common ancestor.
    ArrowKeys(const QVector<QAbstractButton*>& buttons, int columns, QObject* parent);

    /// Whether the widget is one of such buttons, any of which may become the stop.
    static bool moveAt(const QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeStop(const QObject* stop);
    bool move(int index, int key);

    QVector<QAbstractButton*> m_buttons;
    int m_columns;
};
