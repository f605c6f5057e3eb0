#include "sweep/list_transfer.h"

#include "link/pause.h"
#include "link/scpi_session.h"
#include "numbers/number_text.h"
#include "sweep/list/point_table.h"
#include "sweep/list_panel.h"
#include "sweep/panel_wait_cursor.h"
#include "ui/progress_bar_for_table.h"

#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <array>

/// One of the three lists.
struct ListTransfer::Part {
    int number;
    PointTable::Column column;
    const char* name;
};

namespace
{
constexpr int blockRows = 32;
constexpr int listCount = 3;

const QString firstPrefix = QStringLiteral("LIST:%1 ");
const QString nextPrefix = QStringLiteral("LIST:%1:ADD ");
const QString hertzUnit = QStringLiteral("Hz");
// What is sent for an empty cell; the power comes from the main window.
const QString emptyFrequency = QStringLiteral("1 000");
const QString emptyDwellSeconds = QStringLiteral("0.001");

QString minutesAndSeconds(qint64 milliseconds)
{
    const qint64 seconds = (milliseconds + 999) / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}
} // namespace

ListTransfer::ListTransfer(ScpiSession& session, List& panel, const QLineEdit& power, int pauseMs)
    : m_session(session), m_panel(panel), m_power(power), m_pauseMs(pauseMs)
{
}

ListTransfer::~ListTransfer() = default;

bool ListTransfer::transferTable()
{
    static constexpr std::array<Part, listCount> parts = {{{1, PointTable::Frequency, "FREQ"},
                                                           {2, PointTable::Power, "POW"},
                                                           {3, PointTable::Dwell, "DWEL"}}};
    const PanelWaitCursor busy(m_panel);
    const int transfer = ++m_transfer;
    const int blockCount = m_panel.table().rowCount() / blockRows;
    m_bar = std::make_unique<progressBarForTable>(listCount * blockCount, &m_panel.table());
    m_pausesInAll = listCount * qMax(blockCount - 1, 0);
    m_pausesDone = 0;
    m_clock.start();

    // All three now: the table may change in the pauses, and the lists have to match.
    std::array<QStringList, listCount> values;
    std::transform(parts.begin(), parts.end(), values.begin(),
                   [this](const Part& part) { return valuesOf(part); });
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0 && !isWanted(transfer))
            break;
        sendList(transfer, parts[i], values[i]);
        if (transfer != m_transfer)
            return false;
        m_session.checkErrors();
    }
    end();
    return transfer == m_transfer;
}

void ListTransfer::end()
{
    m_bar.reset();
    m_activity.reset();
}

void ListTransfer::abandon()
{
    ++m_transfer;
    end();
}

bool ListTransfer::isWanted(int transfer) const
{
    return transfer == m_transfer && m_session.isConnected() && m_panel.runList().isChecked();
}

/// A column as it is sent: frequencies and powers as they stand, dwell times in seconds.
QStringList ListTransfer::valuesOf(const Part& part) const
{
    const PointTable& table = m_panel.table();
    QStringList values;
    values.reserve(table.rowCount());
    for (int row = 0; row < table.rowCount(); ++row) {
        const QString cell = table.text(row, part.column);
        const bool isEmpty = withoutBlanks(cell).isEmpty();
        if (part.column == PointTable::Frequency)
            values << (isEmpty ? emptyFrequency : cell) + hertzUnit;
        else if (part.column == PointTable::Power)
            values << (isEmpty ? m_power.text() : cell);
        else
            values << (isEmpty ? emptyDwellSeconds : secondsText(cell));
    }
    return values;
}

void ListTransfer::sendList(int transfer, const Part& part, const QStringList& values)
{
    const QString name = QLatin1String(part.name);
    const QString next = nextPrefix.arg(name);
    const int blockCount = values.size() / blockRows;
    showProgress(part);
    sendBlock(firstPrefix.arg(name), values, 0, blockCount > 0 ? blockRows : values.size());
    for (int block = 1; block < blockCount; ++block) {
        QCoreApplication::processEvents();
        if (!isWanted(transfer))
            return;
        sendBlock(next, values, blockRows * block, blockRows * (block + 1));
        // A lost connection has removed the bar.
        if (!isWanted(transfer))
            return;
        m_bar->advance();
        if (!pause(m_pauseMs))
            abandon();
        if (!isWanted(transfer))
            return;
        ++m_pausesDone;
        showProgress(part);
    }
    if (blockCount > 0)
        sendBlock(next, values, blockRows * blockCount, values.size());
}

void ListTransfer::sendBlock(const QString& prefix, const QStringList& values, int first, int end)
{
    if (first < end)
        m_session.waitComplete(prefix + values.mid(first, end - first).join(QLatin1Char(',')));
}

/// The gaps between the blocks take nearly all of the time.
void ListTransfer::showProgress(const Part& part)
{
    const qint64 msPerPause = m_pausesDone > 0 ? m_clock.elapsed() / m_pausesDone : m_pauseMs;
    const QString left = minutesAndSeconds((m_pausesInAll - m_pausesDone) * msPerPause);
    m_bar->showText(tr("List %1 of %2, %3 left").arg(part.number).arg(listCount).arg(left));
    const StatusWords words = [number = part.number, left] {
        return tr("Transferring the table: list %1 of %2, %3 left")
            .arg(number)
            .arg(listCount)
            .arg(left);
    };
    if (m_activity)
        m_activity->say(words);
    else
        m_activity.emplace(words);
}
