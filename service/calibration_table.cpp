#include "service/calibration_table.h"

#include "numbers/number_text.h"
#include "service/calibration_text.h"
#include "ui/whole_grid.h"

#include <QHeaderView>
#include <QIcon>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>
#include <iterator>

namespace
{
constexpr int rowPixels = 26;
constexpr int leastHeight = 240;

struct ColumnRow {
    QString (*accepted)(const QString& typed);
    const char* caption;
    const char* complaint;
};
constexpr ColumnRow columns[] = {
    {wholeHertz, QT_TRANSLATE_NOOP("CalibrationTable", "Freq [Hz]"),
     QT_TRANSLATE_NOOP("CalibrationTable", "Row %1, %2: \"%3\" is not a frequency")},
    {wholeValue, QT_TRANSLATE_NOOP("CalibrationTable", "Attenuation at  0 dBm"),
     QT_TRANSLATE_NOOP("CalibrationTable", "Row %1, %2: \"%3\" is not a whole number")},
};
static_assert(std::size(columns) == CalibrationTable::ColumnCount);

class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override
    {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        editor->setProperty("cellEditor", true);
        return editor;
    }
};

/// Shows frequencies with their digits grouped; the cells hold them as they are sent.
class GroupingDelegate : public CellDelegate
{
public:
    using CellDelegate::CellDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override
    {
        const QString text = value.toString();
        return wholeHertz(text) == text ? groupDigits(text) : text;
    }
};
} // namespace

CalibrationTable::CalibrationTable(QWidget* parent) : QTableWidget(0, ColumnCount, parent)
{
    setObjectName(QStringLiteral("table"));
    setMinimumHeight(leastHeight);
    setTabKeyNavigation(false);
    keepGridWhole(*this);
    setItemDelegate(new CellDelegate(this));
    setItemDelegateForColumn(Frequency, new GroupingDelegate(this));
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(rowPixels);
    retranslate();
}

void CalibrationTable::showPoints(int pointCount, const QStringList& numbers)
{
    m_asRead.clear();
    for (int i = 0; i < pointCount; ++i) {
        const int cell = i * ColumnCount;
        m_asRead.push_back({numbers.value(cell + Frequency), numbers.value(cell + Value)});
    }
    fill(m_asRead);
}

void CalibrationTable::showOtherPoints(const CalibrationPoints& points)
{
    fill(points);
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < ColumnCount; ++column)
            acceptCell(row, column);
    }
}

void CalibrationTable::fill(const CalibrationPoints& points)
{
    setUpdatesEnabled(false);
    // With their marks.
    setRowCount(0);
    setRowCount(static_cast<int>(points.size()));
    int row = 0;
    for (const CalibrationPoint& point : points) {
        for (int column = 0; column < ColumnCount; ++column) {
            auto* cell =
                new QTableWidgetItem(column == Frequency ? point.frequencyHz : point.value);
            cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            setItem(row, column, cell);
        }
        ++row;
    }
    setUpdatesEnabled(true);
}

bool CalibrationTable::isAsRead(int row) const
{
    const auto index = static_cast<std::size_t>(row);
    return index < m_asRead.size() && row < rowCount() &&
           m_asRead[index] == CalibrationPoint{cellText(row, Frequency), cellText(row, Value)};
}

int CalibrationTable::changedRows() const
{
    int changed = 0;
    const int rows = std::max(rowCount(), static_cast<int>(m_asRead.size()));
    for (int row = 0; row < rows; ++row)
        changed += isAsRead(row) ? 0 : 1;
    return changed;
}

/// A star behind the number of a row that differs from what was read, whose text is its tool-tip,
/// and heavy figures in it.
void CalibrationTable::markRow(int row)
{
    const bool isChanged = !isAsRead(row);
    QTableWidgetItem* head = nullptr;
    if (isChanged) {
        const auto index = static_cast<std::size_t>(row);
        const bool isThere = index < m_asRead.size();
        const CalibrationPoint read = isThere ? m_asRead[index] : CalibrationPoint();
        head = new QTableWidgetItem(QStringLiteral("%1 *").arg(row + 1));
        head->setToolTip(
            isThere ? tr("As read: %1 Hz, %2").arg(groupDigits(read.frequencyHz), read.value)
                    : tr("This row was not read from the instrument"));
    }
    setVerticalHeaderItem(row, head);
    for (int column = 0; column < ColumnCount; ++column) {
        QFont font = item(row, column)->font();
        font.setBold(isChanged);
        item(row, column)->setFont(font);
    }
}

QString CalibrationTable::cellText(int row, int column) const
{
    const QTableWidgetItem* cell = item(row, column);
    return cell ? cell->text() : QString();
}

StatusWords CalibrationTable::complaint(int row, int column) const
{
    const QString text = cellText(row, column);
    if (!columns[column].accepted(text).isEmpty())
        return nullptr;
    return [row, column, text] {
        return tr(columns[column].complaint)
            .arg(QString::number(row + 1), tr(columns[column].caption), text);
    };
}

StatusWords CalibrationTable::acceptCell(int row, int column)
{
    QTableWidgetItem* cell = item(row, column);
    if (!cell)
        return nullptr;
    const QSignalBlocker noFurtherEdit(this);
    const StatusWords wrong = complaint(row, column);
    if (!wrong)
        cell->setText(columns[column].accepted(cell->text()));
    cell->setIcon(wrong ? QIcon(QStringLiteral(":/images/invalid.png")) : QIcon());
    cell->setToolTip(wrong ? wrong() : QString());
    markRow(row);
    return wrong;
}

StatusWords CalibrationTable::firstComplaint()
{
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < ColumnCount; ++column) {
            StatusWords wrong = acceptCell(row, column);
            if (!wrong)
                continue;
            setCurrentCell(row, column);
            return wrong;
        }
    }
    return nullptr;
}

CalibrationPoints CalibrationTable::points() const
{
    CalibrationPoints result;
    result.reserve(static_cast<std::size_t>(rowCount()));
    for (int row = 0; row < rowCount(); ++row) {
        result.push_back({wholeHertz(cellText(row, Frequency)), wholeValue(cellText(row, Value))});
    }
    return result;
}

void CalibrationTable::retranslate()
{
    QStringList captions;
    for (const ColumnRow& column : columns)
        captions << tr(column.caption);
    setHorizontalHeaderLabels(captions);
    setAccessibleName(tr("Calibration table"));
    setToolTip(tr("Frequencies in whole hertz, or with k, M or G; whole numbers beside them"));
}
