#pragma once

#include "link/notices.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <optional>

class Connection;
class QLabel;

/// The status line of the window: the current activity; else why there is no connection; else, for
/// a few seconds, a notice. Owns the texts, not the label.
class StatusLine : public QObject
{
    Q_OBJECT

public:
    StatusLine(QLabel& label, const Notices& notices, QObject* parent = nullptr);

    /// Shows the state of the connection.
    void follow(const Connection& connection);

    /// In the current language.
    void retranslate() { refresh(); }

public slots:
    /// A notice about the instrument is dropped with the connection, seen or not.
    void forgetInstrument();

    /// Why an attempt to connect failed. Stays until the next one.
    void showFailure(const StatusWords& reason);
    /// Why a connection was lost. Stays, also beside an activity, until there is one again.
    void showLoss(const StatusWords& reason);
    /// A new attempt has begun: drops the failure of the last one.
    void forgetFailure();
    /// There is a connection.
    void forgetFault();

private:
    /// Shows a notice for a few seconds, once nothing is going on and a new fault has been shown
    /// long enough.
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
