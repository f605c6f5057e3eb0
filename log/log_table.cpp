#include "log/log_table.h"

#include "log/log_model.h"
#include "log/log_text.h"
#include "log/python_script.h"
#include "ui/describe.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace
{
constexpr int lineHeight = 22;
constexpr int timeWidth = 104;
constexpr int answeredWidth = 140;
constexpr int durationWidth = 64;
constexpr int statusWidth = 200;

/// Failures and events in colours of their own, also where they are selected.
class LineDelegate : public QStyledItemDelegate
{
public:
    explicit LineDelegate(LogTable* table) : QStyledItemDelegate(table), m_table(*table) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool hasFailed = index.data(LogModel::FailedRole).toBool();
        if (hasFailed || index.data(LogModel::EventRole).toBool()) {
            const QColor colour = hasFailed ? m_table.failureColour() : m_table.eventColour();
            option->palette.setColor(QPalette::Text, colour);
            option->palette.setColor(QPalette::HighlightedText, colour);
        }
    }

private:
    const LogTable& m_table;
};

QString joined(const std::vector<Exchange>& exchanges, QString (*text)(const Exchange&))
{
    QStringList lines;
    for (const Exchange& exchange : exchanges)
        lines << text(exchange);
    return lines.join(QLatin1Char('\n'));
}

QString lines(const std::vector<Exchange>& exchanges)
{
    return joined(exchanges, logLine);
}

QString sentLines(const std::vector<Exchange>& exchanges)
{
    return joined(exchanges, sentText);
}

QString answeredLines(const std::vector<Exchange>& exchanges)
{
    return joined(exchanges, [](const Exchange& exchange) { return inOneLine(exchange.answered); });
}
} // namespace

LogTable::LogTable(LogModel& model, QWidget* parent)
    : QTableView(parent), m_model(model), m_copy(addCopy(lines)), m_copySent(addCopy(sentLines)),
      m_copyAnswered(addCopy(answeredLines)), m_copyPython(addCopy(pythonLines))
{
    setObjectName(QStringLiteral("table_log"));
    setModel(&model);
    setItemDelegate(new LineDelegate(this));
    setSelectionBehavior(SelectRows);
    setWordWrap(false);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // In a small window too, what failed is seen without scrolling.
    horizontalHeader()->setSectionResizeMode(LogModel::Sent, QHeaderView::Stretch);
    setColumnWidth(LogModel::Time, timeWidth);
    setColumnWidth(LogModel::Answered, answeredWidth);
    setColumnWidth(LogModel::Duration, durationWidth);
    setColumnWidth(LogModel::Status, statusWidth);

    m_copy->setShortcut(QKeySequence::Copy);
    m_copy->setShortcutContext(Qt::WidgetShortcut);
    keepPlace();
}

/// Whatever changes the range of the scroll bar: only the user leaves the end.
void LogTable::keepPlace()
{
    QScrollBar* bar = verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_isAtEnd = value == bar->maximum(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int end) {
        if (m_isAtEnd)
            bar->setValue(end);
    });
    connect(&m_model, &QAbstractItemModel::modelReset, this, [this] {
        m_isAtEnd = true;
        scrollToBottom();
    });
    // Rows go at the front; those being read stay where they are.
    connect(&m_model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this, bar](const QModelIndex&, int first, int last) {
                if (!m_isAtEnd)
                    bar->setValue(bar->value() - (last - first + 1));
            });
}

QAction* LogTable::addCopy(Format format)
{
    auto* action = new QAction(this);
    addAction(action);
    connect(action, &QAction::triggered, this, [this, format] {
        const std::vector<int> rows = selectedRows();
        if (!rows.empty())
            QApplication::clipboard()->setText(format(m_model.exchanges(rows)));
    });
    return action;
}

std::vector<int> LogTable::selectedRows() const
{
    std::vector<int> rows;
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex& index : selected)
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void LogTable::retranslate()
{
    m_copy->setText(tr("&Copy"));
    m_copySent->setText(tr("Copy what was &sent"));
    m_copyAnswered->setText(tr("Copy what was &answered"));
    m_copyPython->setText(tr("Copy as &Python"));
    describe(this, tr("What was sent and answered"), tr("A right click copies the selected lines"));
    emit m_model.headerDataChanged(Qt::Horizontal, 0, LogModel::ColumnCount - 1);
    viewport()->update();
}

void LogTable::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.addActions(actions());
    menu.exec(event->globalPos());
}
