#pragma once

#include <QObject>
#include <QTimer>

class QLabel;

/// The line at the foot of the window: what is going on, and when that is over, for a few seconds,
/// what is to be read once. Owns the texts, not the label.
class StatusLine : public QObject
{
    Q_OBJECT

public:
    explicit StatusLine(QLabel& label, QObject* parent = nullptr);

public slots:
    /// Shows `message` for a few seconds.
    void showMessage(const QString& message);
    /// Shows `description` for as long as it goes on; an empty one ends it.
    void showActivity(const QString& description);

private:
    void refresh();

    QLabel& m_label;
    QTimer m_messageTimer;
    QString m_message;
    QString m_activity;
};
