#pragma once

#include "link/activity.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class Connection;
class QLabel;
class ScpiSession;

/// The line at the foot of the window: what is going on; else why there is no connection; else, for
/// a few seconds, what is to be read once. Owns the texts, not the label.
class StatusLine : public QObject
{
    Q_OBJECT

public:
    explicit StatusLine(QLabel& label, QObject* parent = nullptr);

    /// Says what becomes of the connection, and which errors the instrument reports.
    void follow(const Connection& connection, const ScpiSession& session);

    /// In the present language.
    void retranslate() { refresh(); }

public slots:
    /// Shows `message` for a few seconds, once nothing goes on and a new fault has been read.
    void showMessage(const QString& message);
    /// It holds no longer; what else has been said since stays.
    void forgetMessage(const QString& message);

    /// A message about the instrument that is connected, or about there being none.
    void showInstrumentMessage(const QString& message);
    /// The same, beside what has been told of the instrument just before.
    void addInstrumentMessage(const QString& message);
    /// What is about the instrument does not outlive it, seen or not.
    void forgetInstrument();

    /// Why an attempt to connect came to nothing. Stays until the next one.
    void showFailure(const StatusWords& reason);
    /// Why a connection ended by itself. Stays, beside what goes on too, until there is one again.
    void showLoss(const StatusWords& reason);
    /// There is a new attempt: the failure of the last one is history.
    void forgetFailure();
    /// There is a connection.
    void forgetFault();

private:
    void showFault(const StatusWords& reason, bool isLoss);
    void refresh();
    QString faultText() const { return m_fault ? m_fault() : QString(); }
    QString activityText() const;

    QLabel& m_label;
    QTimer m_messageTimer;
    QTimer m_faultTimer; ///< runs while no message may take the fault's place
    QString m_message;
    bool m_isOfInstrument = false;
    StatusWords m_fault;
    bool m_isLoss = false;
    QElapsedTimer m_sincePainted; ///< at once, before the event loop was reached
};
