#include "service/calibration_table.h"

#include "numbers/number_text.h"
#include "service/calibration_text.h"

#include <QHeaderView>
#include <QIcon>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

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
    setUpdatesEnabled(false);
    clearContents();
    setRowCount(pointCount);
    for (int cell = 0; cell < pointCount * ColumnCount; ++cell) {
        auto* item = new QTableWidgetItem(numbers.value(cell));
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setItem(cell / ColumnCount, cell % ColumnCount, item);
    }
    setUpdatesEnabled(true);
}

QString CalibrationTable::cellText(int row, int column) const
{
    const QTableWidgetItem* cell = item(row, column);
    return cell ? cell->text() : QString();
}

QString CalibrationTable::complaint(int row, int column) const
{
    const QString text = cellText(row, column);
    if (!columns[column].accepted(text).isEmpty())
        return QString();
    return tr(columns[column].complaint)
        .arg(QString::number(row + 1), tr(columns[column].caption), text);
}

QString CalibrationTable::acceptCell(int row, int column)
{
    QTableWidgetItem* cell = item(row, column);
    if (!cell)
        return QString();
    const QSignalBlocker noFurtherEdit(this);
    QString wrong = complaint(row, column);
    if (wrong.isEmpty())
        cell->setText(columns[column].accepted(cell->text()));
    cell->setIcon(wrong.isEmpty() ? QIcon() : QIcon(QStringLiteral(":/images/invalid.png")));
    cell->setToolTip(wrong);
    return wrong;
}

QString CalibrationTable::firstComplaint()
{
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < ColumnCount; ++column) {
            QString wrong = acceptCell(row, column);
            if (wrong.isEmpty())
                continue;
            setCurrentCell(row, column);
            return wrong;
        }
    }
    return QString();
}

std::vector<CalibrationPoint> CalibrationTable::points() const
{
    std::vector<CalibrationPoint> result;
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
