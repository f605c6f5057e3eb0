#include "sweep/list/point_table.h"

#include "fields/power_guard.h"
#include "link/instrument_limits.h"
#include "link/notices.h"
#include "numbers/number_text.h"
#include "sweep/list/point_delegate.h"
#include "ui/progress_bar_for_table.h"
#include "ui/whole_grid.h"

#include <QHeaderView>
#include <QIcon>
#include <QSignalBlocker>
#include <QUndoCommand>

#include <algorithm>
#include <utility>

namespace
{
constexpr int lineHeight = 20;
constexpr int rowsInView = 14;
constexpr int undoSteps = 100;
constexpr std::size_t undoBytes = std::size_t{64} * 1024 * 1024;

/// At most: texts that are the same may be shared.
std::size_t bytesOf(const PointRows& rows)
{
    constexpr std::size_t textHead = 32;
    std::size_t bytes = 0;
    for (const PointRow& row : rows) {
        for (const QString& text : row)
            bytes += sizeof(text) + textHead + static_cast<std::size_t>(text.size()) * 2;
    }
    return bytes;
}
} // namespace

/// Rows in the place of others, and back.
class PointTable::RowsChange : public QUndoCommand
{
public:
    RowsChange(PointTable& table, RowsEdit edit, const QString& what)
        : QUndoCommand(what), m_table(table), m_first(edit.first),
          m_before(table.m_points.begin() + edit.first,
                   table.m_points.begin() + edit.first + edit.count),
          m_after(std::move(edit.rows)), m_bytes(bytesOf(m_before) + bytesOf(m_after)),
          m_revisionBefore(table.m_revision), m_revisionAfter(++table.m_lastRevision)
    {
    }

    std::size_t bytes() const { return m_bytes; }
    /// It can no longer be applied.
    void forget()
    {
        m_before.clear();
        m_after.clear();
        setObsolete(true);
    }
    /// Once undone, it is as if it had never been.
    void beForgottenByUndo() { m_isForgottenByUndo = true; }

    void redo() override { m_table.apply(m_first, size(m_before), m_after, m_revisionAfter); }
    void undo() override
    {
        m_table.apply(m_first, size(m_after), m_before, m_revisionBefore);
        setObsolete(m_isForgottenByUndo);
    }

private:
    static int size(const PointRows& rows) { return static_cast<int>(rows.size()); }

    PointTable& m_table;
    int m_first;
    PointRows m_before;
    PointRows m_after;
    std::size_t m_bytes;
    int m_revisionBefore;
    int m_revisionAfter;
    bool m_isForgottenByUndo = false;
};

PointTable::PointTable(const FieldContext& context, QWidget* parent)
    : QTableWidget(0, pointColumnCount, parent), m_context(context),
      m_delegate(new PointDelegate(context, this))
{
    setObjectName(QStringLiteral("table_List"));
    setItemDelegate(m_delegate);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    // Tab is the table's own matter: see focusNextPrevChild().
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    keepGridWhole(*this);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    // All of one height: any number of rows is never measured.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(lineHeight);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    m_history.setUndoLimit(undoSteps);
    connect(model(), &QAbstractItemModel::rowsInserted, this, &PointTable::foreignRowsChanged);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, &PointTable::foreignRowsChanged);
    retranslate();
}

QSize PointTable::sizeHint() const
{
    const int frames = 2 * frameWidth();
    return {QTableWidget::sizeHint().width(),
            horizontalHeader()->sizeHint().height() + rowsInView * lineHeight + frames};
}

QString PointTable::enteredText(const QString& typed, int column, const InstrumentLimits& limits)
{
    const Range& range = limits[pointQuantities[column]];
    return clampText(typed, range.min, range.max, pointKind(column));
}

QString PointTable::text(int row, int column) const
{
    const QTableWidgetItem* cell = item(row, column);
    return cell == nullptr ? QString() : cell->text();
}

bool PointTable::hasEmptyCell(int column) const
{
    int row = 0;
    while (row < rowCount() && !withoutBlanks(text(row, column)).isEmpty())
        ++row;
    return row < rowCount();
}

const PointRows& PointTable::points()
{
    takeOverRows(0, rowCount());
    return m_points;
}

/// Cells may have been set without this class, and without its signals, too.
void PointTable::takeOverRows(int first, int count)
{
    for (int row = first; row < first + count; ++row)
        m_points[static_cast<std::size_t>(row)] = {text(row, Frequency), text(row, Power),
                                                   text(row, Dwell)};
}

bool PointTable::change(RowsEdit edit, const QString& what)
{
    if (refuseDuringTransfer())
        return false;
    const bool isEntry = edit.count == 1 && edit.rows.size() == 1;
    if (!isEntry)
        m_addedRow = -1;
    takeOverRows(edit.first, edit.count);
    m_history.push(new RowsChange(*this, std::move(edit), what));
    boundHistory();
    if (!m_history.canUndo())
        m_context.notices.say([] { return tr("This change is too large to be undone"); });
    return true;
}

void PointTable::start(PointRows rows)
{
    if (change({0, rowCount(), std::move(rows)}, QString()))
        m_history.clear();
}

/// Forgets the oldest changes that would take too much memory.
void PointTable::boundHistory()
{
    std::size_t bytes = 0;
    for (int i = m_history.count() - 1; i >= 0; --i) {
        auto* change = static_cast<RowsChange*>(const_cast<QUndoCommand*>(m_history.command(i)));
        bytes += change->bytes();
        if (bytes > undoBytes)
            change->forget();
    }
    dropForgotten();
}

/// The stack deletes a forgotten change when it reaches it, and nothing else happens.
void PointTable::dropForgotten()
{
    while (m_history.canUndo() && m_history.command(m_history.index() - 1)->isObsolete())
        m_history.undo();
}

int PointTable::boundByLimits()
{
    PointRows rows = points();
    int count = 0;
    for (int column = 0; column < pointColumnCount; ++column) {
        for (PointRow& row : rows)
            count += m_context.limits.bound(row[static_cast<std::size_t>(column)],
                                            pointQuantities[column]);
    }
    const int all = rowCount();
    return count > 0 && change({0, all, std::move(rows)}, tr("Bound by the limits")) ? count : 0;
}

void PointTable::takeBack()
{
    if (refuseDuringTransfer())
        return;
    m_addedRow = -1;
    m_history.undo();
    dropForgotten();
}

void PointTable::bringBack()
{
    if (!refuseDuringTransfer())
        m_history.redo();
}

void PointTable::dropUnusedRow()
{
    const int row = std::exchange(m_addedRow, -1);
    if (row < 0 || row + 1 != rowCount() || !isUnused(row) ||
        progressBarForTable::liesWithin(*this))
        return;
    const int last = m_history.index() - 1;
    const QUndoCommand* addition = last < 0 ? nullptr : m_history.command(last);
    if (addition && addition->text() == tr("Add row")) {
        static_cast<RowsChange*>(const_cast<QUndoCommand*>(addition))->beForgottenByUndo();
        m_history.undo();
    } else {
        // Something was entered meanwhile, and removed again.
        change({row, 1, {}}, tr("Delete row"));
    }
}

void PointTable::acceptCell(int row, int column)
{
    PointRow accepted = m_points.at(static_cast<std::size_t>(row));
    QString& held = accepted.at(static_cast<std::size_t>(column));
    const QString typed = text(row, column);
    if (typed == held)
        return;
    if (!withoutBlanks(typed).isEmpty() && !readsAsNumber(typed, pointKind(column))) {
        showRow(row);
        m_context.notices.say([row, column, typed] {
            return tr("Row %1, %2: \"%3\" is not a number")
                .arg(row + 1)
                .arg(columnTitles().at(column), typed);
        });
        return;
    }
    QString entered = enteredText(typed, column, m_context.limits);
    if (column == Power && m_guard)
        entered = m_guard->bounded(entered);
    const bool isNew = entered != held;
    held = entered;
    // The change starts from what was there before the user typed.
    showRow(row);
    if (isNew)
        change({row, 1, {accepted}}, tr("Edit"));
}

/// Makes `rows` what the table holds in the place of `count` rows. Only the rows concerned are
/// touched, and only once.
void PointTable::apply(int first, int count, const PointRows& rows, int revision)
{
    m_revision = revision;
    const int newCount = static_cast<int>(rows.size());
    const int common = std::min(count, newCount);
    const auto begin = m_points.begin() + first;
    std::copy_n(rows.begin(), common, begin);
    if (newCount > count)
        m_points.insert(begin + common, rows.begin() + common, rows.end());
    else
        m_points.erase(begin + common, begin + count);
    {
        const QSignalBlocker quiet(this);
        if (newCount > count)
            model()->insertRows(first + common, newCount - count);
        else if (newCount < count)
            model()->removeRows(first + common, count - newCount);
        for (int row = first; row < first + common; ++row)
            showRow(row);
        // New rows are drawn when they come into view: not a word of each of their cells.
        const QSignalBlocker quietModel(model());
        for (int row = first + common; row < first + newCount; ++row)
            fillRow(row);
    }
    viewport()->update();
    emit pointsChanged();
}

void PointTable::showRow(int row)
{
    const QSignalBlocker quiet(this);
    const PointRow& point = m_points[static_cast<std::size_t>(row)];
    for (int column = 0; column < pointColumnCount; ++column) {
        if (QTableWidgetItem* cell = item(row, column))
            cell->setText(point[static_cast<std::size_t>(column)]);
    }
    fillRow(row);
}

/// Gives the cells of a row that are not there yet.
void PointTable::fillRow(int row)
{
    const PointRow& point = m_points[static_cast<std::size_t>(row)];
    for (int column = 0; column < pointColumnCount; ++column) {
        if (item(row, column) == nullptr)
            setItem(row, column, new QTableWidgetItem(point[static_cast<std::size_t>(column)]));
    }
    markPower(row);
}

/// Rows were inserted or removed without this class: earlier changes can no longer be undone.
void PointTable::foreignRowsChanged()
{
    if (static_cast<int>(m_points.size()) == rowCount())
        return;
    m_points.resize(static_cast<std::size_t>(rowCount()));
    takeOverRows(0, rowCount());
    m_history.clear();
    m_revision = ++m_lastRevision;
    m_addedRow = -1;
    emit pointsChanged();
}

/// Rows that are being transferred block by block must not change.
bool PointTable::refuseDuringTransfer()
{
    const bool isTransferred = progressBarForTable::liesWithin(*this);
    if (isTransferred)
        m_context.notices.say([] { return tr("The list is being transferred"); });
    return isTransferred;
}

std::vector<int> PointTable::chosenRows() const
{
    std::vector<bool> isChosen(m_points.size(), false);
    for (const QItemSelectionRange& range : selectionModel()->selection())
        std::fill(isChosen.begin() + range.top(), isChosen.begin() + range.bottom() + 1, true);
    std::vector<int> rows;
    for (int row = 0; row < rowCount(); ++row) {
        if (isChosen[static_cast<std::size_t>(row)])
            rows.push_back(row);
    }
    if (rows.empty() && currentRow() >= 0)
        rows.push_back(currentRow());
    return rows;
}

void PointTable::selectRows(int first, int last)
{
    setCurrentCell(first, std::max(currentColumn(), 0), QItemSelectionModel::NoUpdate);
    const QItemSelection rows(model()->index(first, 0), model()->index(last, pointColumnCount - 1));
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    scrollTo(model()->index(last, currentColumn()));
    scrollTo(currentIndex());
}

QRect PointTable::rectOfPoint(int number) const
{
    if (number < 1 || number > rowCount())
        return QRect();
    return visualRect(model()->index(number - 1, 0)) |
           visualRect(model()->index(number - 1, pointColumnCount - 1));
}

int PointTable::highlightedPoint() const
{
    return m_delegate->reached();
}

void PointTable::highlightPoint(int number)
{
    if (number == highlightedPoint())
        return;
    const QRect previous = rectOfPoint(highlightedPoint());
    // A user who has scrolled away, or edits, wants to see something else.
    const bool isFollowed =
        state() != EditingState && (previous.isEmpty() || viewport()->rect().intersects(previous));
    m_delegate->setReached(number);
    viewport()->update(previous);
    if (number >= 1 && number <= rowCount() && isFollowed)
        scrollTo(model()->index(number - 1, std::max(currentColumn(), 0)));
    viewport()->update(rectOfPoint(number));
}

void PointTable::setPowerGuard(PowerGuard& guard)
{
    m_guard = &guard;
    connect(m_guard, &PowerGuard::ceilingChanged, this, &PointTable::markAboveCeiling);
}

bool PointTable::isAboveCeiling(const QString& power) const
{
    return m_guard && m_guard->ceilingDbm() && !withoutBlanks(power).isEmpty() &&
           m_guard->isAboveCeiling(toNumber(power));
}

void PointTable::markPower(int row)
{
    QTableWidgetItem* cell = item(row, Power);
    const bool isAbove = isAboveCeiling(text(row, Power));
    if (cell == nullptr || cell->icon().isNull() != isAbove)
        return;
    const QSignalBlocker quiet(this);
    cell->setIcon(isAbove ? QIcon(QStringLiteral(":/images/invalid.png")) : QIcon());
    cell->setToolTip(isAbove ? tr("Above the highest power") : QString());
}

int PointTable::markAboveCeiling()
{
    int first = -1;
    for (int row = 0; row < rowCount(); ++row) {
        markPower(row);
        if (first < 0 && isAboveCeiling(text(row, Power)))
            first = row;
    }
    return first;
}

QStringList PointTable::columnTitles()
{
    return {tr("Freq [Hz]"), tr("Pow [dBm]"), tr("Dwell [μs]")};
}

void PointTable::retranslate()
{
    setHorizontalHeaderLabels(columnTitles());
    setAccessibleName(tr("List of points"));
    setToolTip(tr("Double-click or type to edit a cell; k, m or g after a frequency, m or s after "
                  "a dwell: unit letters"));
}
