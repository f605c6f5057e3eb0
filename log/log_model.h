#pragma once

#include "log/log_filter.h"

#include <QAbstractTableModel>
#include <QTimer>

#include <deque>
#include <vector>

/// The lines of the log that its filter accepts, as rows. Copies nothing of the log. New lines
/// come in together, at most ten times a second, and only while somebody looks.
class LogModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Time, Sent, Answered, Duration, Status, ColumnCount };
    /// Of a row: whether it failed, and whether it is an event between the exchanges.
    enum Role { FailedRole = Qt::UserRole, EventRole };

    explicit LogModel(const ExchangeLog& log, QObject* parent = nullptr);

    const LogFilter& filter() const { return m_filter; }
    void setFilter(const LogFilter& filter);
    /// While it is not followed, the rows stay as they are; what is dropped from the log is left
    /// out.
    void follow(bool isFollowed);

    const Exchange& exchange(int row) const;
    /// Of the rows, or of all.
    std::vector<Exchange> exchanges(const std::vector<int>& rows) const;
    std::vector<Exchange> exchanges() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void schedule();
    void takeNew();
    void leaveOutDropped();
    void refilter();
    void showBlamed(ExchangeLog::Number number);
    QString text(const Exchange& exchange, int column) const;

    const ExchangeLog& m_log;
    LogFilter m_filter;
    std::deque<ExchangeLog::Number> m_rows;
    ExchangeLog::Number m_next = 0; ///< the first exchange that has not been looked at
    QTimer m_timer;
    bool m_isFollowed = false;
};
