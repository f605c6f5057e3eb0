#pragma once

#include "link/notices.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <optional>

class Connection;
class QLabel;

/// The line at the foot of the window: what is going on; else why there is no connection; else, for
/// a few seconds, what is to be read once. Owns the texts, not the label.
class StatusLine : public QObject
{
    Q_OBJECT

public:
    StatusLine(QLabel& label, const Notices& notices, QObject* parent = nullptr);

    /// Says what becomes of the connection.
    void follow(const Connection& connection);

    /// In the present language.
    void retranslate() { refresh(); }

public slots:
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
    /// Shows a notice for a few seconds, once nothing goes on and a new fault has been read.
    void showNotice(const Notice& notice);
    void forgetNotice();
    bool isOfInstrument() const;
    void showFault(const StatusWords& reason, bool isLoss);
    void refresh();
    QString faultText() const { return m_fault ? m_fault() : QString(); }
    QString noticeText() const { return m_notice ? m_notice->words() : QString(); }
    QString activityText() const;

    QLabel& m_label;
    QTimer m_messageTimer;
    QTimer m_faultTimer; ///< runs while no message may take the fault's place
    std::optional<Notice> m_notice;
    StatusWords m_fault;
    bool m_isLoss = false;
    QElapsedTimer m_sincePainted; ///< at once, before the event loop was reached
};
