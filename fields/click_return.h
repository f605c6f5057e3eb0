#pragma once

#include <QObject>
#include <QPointer>

class QAbstractButton;
class QWidget;

/// Gives a field the focus back that a click on a button has taken, before the button acts: the
/// field has been left and committed, and can be stepped further. Belongs to the button, and
/// deletes itself after that click.
class ClickReturn : public QObject
{
    Q_OBJECT

public:
    ClickReturn(QWidget& field, QAbstractButton& button);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> m_field;
    QAbstractButton& m_button;
};
