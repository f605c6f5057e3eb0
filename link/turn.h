#pragma once

#include <QObject>
#include <QTimer>

/// The turn of those who must not send between the commands of a sequence.
class Turn : public QObject
{
    Q_OBJECT

public:
    explicit Turn(QObject* parent = nullptr);

    /// Nothing is going on, and no sequence pauses.
    static bool isNow();
    /// Emits due() once, when it is.
    void await() { m_look.start(); }
    void giveUp() { m_look.stop(); }

signals:
    void due();

private:
    QTimer m_look;
};
