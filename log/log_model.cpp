#include "log/log_model.h"

#include "log/log_text.h"
#include "ui/instrument_text.h"

#include <QIcon>

#include <algorithm>
#include <numeric>

namespace
{
constexpr int takeIntervalMs = 100;
/// A list's block is far longer; more would only be cut by the column.
constexpr int mostShown = 300;

/// As wide as one, so that all words begin at the same place.
QIcon noIcon()
{
    constexpr int size = 16;
    QPixmap empty(size, size);
    empty.fill(Qt::transparent);
    return empty;
}

int alignmentOf(int column)
{
    return int(Qt::AlignVCenter | (column == LogModel::Duration ? Qt::AlignRight : Qt::AlignLeft));
}
} // namespace

LogModel::LogModel(const ExchangeLog& log, QObject* parent)
    : QAbstractTableModel(parent), m_log(log)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(takeIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &LogModel::takeNew);
    connect(&log, &ExchangeLog::added, this, &LogModel::schedule);
    connect(&log, &ExchangeLog::blamed, this, &LogModel::showBlamed);
    connect(&log, &ExchangeLog::cleared, this, &LogModel::refilter);
}

void LogModel::setFilter(const LogFilter& filter)
{
    m_filter = filter;
    refilter();
}

void LogModel::follow(bool isFollowed)
{
    m_isFollowed = isFollowed;
    if (isFollowed)
        takeNew();
}

const Exchange& LogModel::exchange(int row) const
{
    static const Exchange none;
    const ExchangeLog::Number number = m_rows[static_cast<std::size_t>(row)];
    return number < m_log.first() ? none : m_log.at(number);
}

std::vector<Exchange> LogModel::exchanges(const std::vector<int>& rows) const
{
    std::vector<Exchange> found;
    found.reserve(rows.size());
    for (const int row : rows) {
        const ExchangeLog::Number number = m_rows[static_cast<std::size_t>(row)];
        if (number >= m_log.first())
            found.push_back(m_log.at(number));
    }
    return found;
}

std::vector<Exchange> LogModel::exchanges() const
{
    std::vector<int> rows(m_rows.size());
    std::iota(rows.begin(), rows.end(), 0);
    return exchanges(rows);
}

void LogModel::schedule()
{
    const bool hasDropped = !m_rows.empty() && m_rows.front() < m_log.first();
    if ((m_isFollowed || hasDropped) && !m_timer.isActive())
        m_timer.start();
}

void LogModel::takeNew()
{
    leaveOutDropped();
    if (!m_isFollowed)
        return;
    std::vector<ExchangeLog::Number> accepted;
    for (m_next = std::max(m_next, m_log.first()); m_next < m_log.end(); ++m_next) {
        if (m_filter.accepts(m_log.at(m_next)))
            accepted.push_back(m_next);
    }
    if (accepted.empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(accepted.size()) - 1);
    m_rows.insert(m_rows.end(), accepted.begin(), accepted.end());
    endInsertRows();
}

void LogModel::leaveOutDropped()
{
    const auto kept = std::lower_bound(m_rows.begin(), m_rows.end(), m_log.first());
    if (kept == m_rows.begin())
        return;
    beginRemoveRows({}, 0, static_cast<int>(kept - m_rows.begin()) - 1);
    m_rows.erase(m_rows.begin(), kept);
    endRemoveRows();
}

void LogModel::refilter()
{
    beginResetModel();
    m_rows.clear();
    const ExchangeLog::Number end = m_isFollowed ? m_log.end() : std::min(m_next, m_log.end());
    for (ExchangeLog::Number number = m_log.first(); number < end; ++number) {
        if (m_filter.accepts(m_log.at(number)))
            m_rows.push_back(number);
    }
    m_next = std::max(end, m_log.first());
    endResetModel();
}

void LogModel::showBlamed(ExchangeLog::Number number)
{
    if (number >= m_next)
        return;
    const auto row = std::lower_bound(m_rows.begin(), m_rows.end(), number);
    const int at = static_cast<int>(row - m_rows.begin());
    if (row != m_rows.end() && *row == number) {
        emit dataChanged(index(at, 0), index(at, ColumnCount - 1));
    } else if (m_filter.accepts(m_log.at(number))) {
        beginInsertRows({}, at, at);
        m_rows.insert(row, number);
        endInsertRows();
    }
}

int LogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LogModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString LogModel::text(const Exchange& exchange, int column) const
{
    switch (column) {
    case Time:
        return timeText(exchange);
    case Sent:
        return sentText(exchange);
    case Answered:
        return inOneLine(exchange.answered);
    case Duration:
        return durationText(exchange);
    default:
        return statusText(exchange);
    }
}

QVariant LogModel::data(const QModelIndex& index, int role) const
{
    const Exchange& line = exchange(index.row());
    switch (role) {
    case Qt::DisplayRole: {
        const QString whole = text(line, index.column());
        return whole.size() <= mostShown ? whole : whole.left(mostShown) + QChar(0x2026);
    }
    case Qt::ToolTipRole:
        return neverRich(text(line, index.column()).left(mostShown));
    case Qt::TextAlignmentRole:
        return alignmentOf(index.column());
    case Qt::DecorationRole:
        if (index.column() != Status)
            return {};
        return line.hasFailed() ? QIcon(QStringLiteral(":/images/invalid.png")) : noIcon();
    case FailedRole:
        return line.hasFailed();
    case EventRole:
        return line.isEvent();
    default:
        return {};
    }
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return alignmentOf(section);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return columnTitles().value(section);
}
