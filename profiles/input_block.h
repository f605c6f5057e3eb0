#pragma once

#include <QObject>
#include <QVector>

class QWidget;

/// While it lives, no click, wheel or key of the user's reaches any widget of the program but the
/// exempt ones. What the program itself clicks goes on working, and so do closing by the window
/// manager, painting and timers.
class InputBlock : public QObject
{
    Q_OBJECT

public:
    explicit InputBlock(const QVector<QWidget*>& exempt);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isExempt(QObject* watched, const QPoint& globalPos) const;

    QVector<QWidget*> m_exempt;
};
