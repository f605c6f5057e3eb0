#include "sweep/list/point_actions.h"

#include "link/notices.h"
#include "sweep/list/cell_clipboard.h"
#include "sweep/list/list_file.h"
#include "sweep/list/point_table.h"
#include "ui/describe.h"
#include "ui/question.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QIcon>
#include <QMenu>
#include <QPushButton>
#include <QVariant>

#include <algorithm>

namespace
{
constexpr int iconSide = 20;
/// With fewer rows there is nothing between the ends.
constexpr int fewestRowsToFill = 3;

bool isFill(std::size_t command)
{
    return command >= PointActions::FillLinear && command <= PointActions::FillDown;
}
} // namespace

struct PointActions::Row {
    const char* icon;
    const char* shortcut;
    const char* text;
    void (PointActions::*slot)();
    bool startsSection;
};

// In the order of the commands, which is that of the menu.
const PointActions::Row PointActions::rows[] = {
    {"row_add", "Ins", QT_TR_NOOP("Insert row"), &PointActions::insert, false},
    {"row_delete", "Del", QT_TR_NOOP("Delete rows"), &PointActions::remove, false},
    {"row_duplicate", "Ctrl+Shift+D", QT_TR_NOOP("Duplicate rows"), &PointActions::duplicate,
     false},
    {"row_up", "Alt+Up", QT_TR_NOOP("Move rows up"), &PointActions::moveUp, false},
    {"row_down", "Alt+Down", QT_TR_NOOP("Move rows down"), &PointActions::moveDown, false},
    {"fill", "Ctrl+I", QT_TR_NOOP("Fill linearly"), &PointActions::fillLinear, true},
    {"fill", "Ctrl+Shift+I", QT_TR_NOOP("Fill logarithmically"), &PointActions::fillLogarithmic,
     false},
    {"fill", "Alt+Shift+Down", QT_TR_NOOP("Fill down"), &PointActions::fillDown, false},
    {"generate", "Ctrl+G", QT_TR_NOOP("Make the list from the sweep"),
     &PointActions::generateWanted, false},
    {"copy", "Ctrl+C", QT_TR_NOOP("Copy"), &PointActions::copy, true},
    {"paste", "Ctrl+V", QT_TR_NOOP("Paste"), &PointActions::paste, false},
    {"", "Ctrl+A", QT_TR_NOOP("Select all"), &PointActions::selectAll, false},
    {"undo", "Ctrl+Z", QT_TR_NOOP("Undo"), &PointActions::undo, true},
    {"redo", "Ctrl+Shift+Z", QT_TR_NOOP("Redo"), &PointActions::redo, false},
    {"trash", "Ctrl+Shift+Del", QT_TR_NOOP("Clear list"), &PointActions::clear, true},
};

PointActions::PointActions(PointTable* table)
    : QObject(table), m_table(table), m_menu(new QMenu(table)), m_fillMenu(new QMenu(table))
{
    build();
    const QUndoStack& history = table->history();
    connect(&history, &QUndoStack::canUndoChanged, action(Undo), &QAction::setEnabled);
    connect(&history, &QUndoStack::canRedoChanged, action(Redo), &QAction::setEnabled);
    action(Undo)->setEnabled(false);
    action(Redo)->setEnabled(false);
    table->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(table, &QWidget::customContextMenuRequested, this, [this](const QPoint& position) {
        m_menu->popup(m_table->viewport()->mapToGlobal(position));
    });
    retranslate();
}

void PointActions::build()
{
    for (std::size_t i = 0; i < commandCount; ++i) {
        const Row& row = rows[i];
        auto* made = new QAction(this);
        made->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        made->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        made->setShortcutVisibleInContextMenu(true);
        if (row.icon[0] != '\0')
            made->setIcon(QIcon(QStringLiteral(":/images/%1.png").arg(QLatin1String(row.icon))));
        connect(made, &QAction::triggered, this, [this, slot = row.slot] {
            // A cell that is being edited is entered first.
            m_table->setFocus();
            (this->*slot)();
        });
        m_actions[i] = made;
        m_table->addAction(made);
        if (row.startsSection)
            m_menu->addSeparator();
        m_menu->addAction(made);
        if (isFill(i))
            m_fillMenu->addAction(made);
    }
}

QAction* PointActions::action(Command command) const
{
    return m_actions[command];
}

QPushButton* PointActions::newButton(Command command, const QString& objectName,
                                     QWidget* parent) const
{
    auto* button = new QPushButton(parent);
    button->setObjectName(objectName);
    button->setProperty("tool", true);
    button->setIconSize(QSize(iconSide, iconSide));
    button->setFocusPolicy(Qt::TabFocus);
    QAction* source = action(command);
    const auto follow = [button, source] {
        button->setIcon(source->icon());
        button->setEnabled(source->isEnabled());
        const QString key = source->shortcut().toString(QKeySequence::NativeText);
        describe(button, source->text(), QStringLiteral("%1 (%2)").arg(source->text(), key));
    };
    connect(source, &QAction::changed, button, follow);
    connect(button, &QAbstractButton::clicked, source, &QAction::trigger);
    follow();
    return button;
}

QPushButton* PointActions::newFillButton(const QString& objectName, QWidget* parent) const
{
    auto* button = new QPushButton(parent);
    button->setObjectName(objectName);
    button->setProperty("tool", true);
    button->setIconSize(QSize(iconSide, iconSide));
    button->setIcon(action(FillLinear)->icon());
    button->setMenu(m_fillMenu);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

bool PointActions::change(const RowsEdit& edit, Command command)
{
    return m_table->change(edit, action(command)->text());
}

bool PointActions::changeBounded(const BoundedEdit& edit, Command command)
{
    const bool isChanged = change(edit, command);
    const int count = edit.boundedCells;
    if (isChanged && count > 0)
        m_table->context().notices.say([count] {
            return count == 1 ? tr("One value was bounded by the limits of the instrument")
                              : tr("%n values were bounded by the limits of the instrument",
                                   nullptr, count);
        });
    return isChanged;
}

void PointActions::setRowsToInsert(int count)
{
    m_rowsToInsert = count;
    retranslateInsert();
}

/// The rectangle around the selection; without one the current cell.
CellSpan PointActions::chosenCells() const
{
    CellSpan span{m_table->currentRow(), m_table->currentRow(), m_table->currentColumn(),
                  m_table->currentColumn()};
    bool isFirst = true;
    for (const QItemSelectionRange& range : m_table->selectionModel()->selection()) {
        span.firstRow = isFirst ? range.top() : std::min(span.firstRow, range.top());
        span.lastRow = isFirst ? range.bottom() : std::max(span.lastRow, range.bottom());
        span.firstColumn = isFirst ? range.left() : std::min(span.firstColumn, range.left());
        span.lastColumn = isFirst ? range.right() : std::max(span.lastColumn, range.right());
        isFirst = false;
    }
    return span;
}

void PointActions::insert()
{
    const int row = m_table->currentRow() < 0 ? m_table->rowCount() : m_table->currentRow() + 1;
    const int count = std::min(m_rowsToInsert, mostListLines - m_table->rowCount());
    if (count > 0 && change({row, 0, PointRows(static_cast<std::size_t>(count))}, Insert))
        m_table->setCurrentCell(row, PointTable::Frequency);
}

void PointActions::remove()
{
    const std::vector<int> chosen = m_table->chosenRows();
    if (chosen.empty() || !change(withoutRows(m_table->points(), chosen), Delete))
        return;
    const int next = std::min(chosen.front(), m_table->rowCount() - 1);
    m_table->setCurrentCell(next, std::max(m_table->currentColumn(), 0));
}

void PointActions::duplicate()
{
    const std::vector<int> chosen = m_table->chosenRows();
    if (chosen.empty())
        return;
    const RowsEdit edit = withDuplicates(m_table->points(), chosen);
    if (change(edit, Duplicate))
        m_table->selectRows(edit.first, edit.first + static_cast<int>(edit.rows.size()) - 1);
}

void PointActions::move(int direction)
{
    const std::vector<int> chosen = m_table->chosenRows();
    if (chosen.empty())
        return;
    const auto edit = withRowsMoved(m_table->points(), chosen.front(), chosen.back(), direction);
    if (edit && change(*edit, direction < 0 ? MoveUp : MoveDown))
        m_table->selectRows(chosen.front() + direction, chosen.back() + direction);
}

/// Fills between the ends of the selection. A selection with nothing in between stands for its
/// whole columns or, when filling down, for all rows below it.
void PointActions::fill(Fill fill)
{
    CellSpan span = chosenCells();
    const bool isDown = fill == Fill::Down;
    if (span.lastRow - span.firstRow + 1 < (isDown ? 2 : fewestRowsToFill)) {
        span.firstRow = isDown ? span.firstRow : 0;
        span.lastRow = m_table->rowCount() - 1;
    }
    if (span.firstColumn < 0 || span.firstRow < 0 || span.lastRow <= span.firstRow)
        return;
    const auto edit = withFilled(m_table->points(), span, fill, m_table->context().limits);
    if (!edit) {
        m_table->context().notices.say([fill] {
            return fill == Fill::Logarithmic
                       ? tr("To fill logarithmically, the first and the last cell must both "
                            "hold numbers above 0, or both below")
                       : tr("To fill, the first and the last cell must hold numbers");
        });
        return;
    }
    const Command commands[] = {FillLinear, FillLogarithmic, FillDown};
    changeBounded(*edit, commands[static_cast<int>(fill)]);
}

void PointActions::generate(const PointRows& made)
{
    if (!made.empty() && change({0, m_table->rowCount(), made}, Generate))
        m_table->setCurrentCell(0, PointTable::Frequency);
}

void PointActions::copy()
{
    const CellSpan span = chosenCells();
    if (span.firstRow >= 0 && span.firstColumn >= 0)
        QApplication::clipboard()->setText(copiedText(m_table->points(), span));
}

void PointActions::refusePaste(const QString& text)
{
    m_table->context().notices.say(
        [text = text.trimmed()] { return tr("Not pasted: \"%1\" is not a number").arg(text); });
}

void PointActions::refuseHeading(const QString& text)
{
    m_table->context().notices.say([text = text.trimmed()] {
        return tr("Not pasted: the unit of \"%1\" does not fit the column").arg(text);
    });
}

/// A single number goes into every cell chosen; a range from the first cell chosen on.
void PointActions::paste()
{
    CellSpan span = chosenCells();
    const InstrumentLimits& limits = m_table->context().limits;
    const int column = std::max(span.firstColumn, 0);
    const QString copied = QApplication::clipboard()->text();
    const PastedCells pasted = pastedCells(copied, column);
    if (!pasted.strange.isEmpty()) {
        pasted.isHeading ? refuseHeading(pasted.strange) : refusePaste(pasted.strange);
        return;
    }
    if (pasted.texts.empty())
        return;
    const bool isSingle = pasted.texts.size() == 1 && pasted.texts.front().size() == 1;
    if (isSingle && span.firstRow >= 0) {
        // A number with a unit fits only columns of its kind.
        for (int other = column + 1; other <= span.lastColumn; ++other) {
            if (pastedCells(copied, other).texts == pasted.texts)
                continue;
            refusePaste(copied);
            return;
        }
        changeBounded(withEntered(m_table->points(), span, pasted.texts.front().front(), limits),
                      Paste);
        return;
    }
    const int row = std::max(span.firstRow, 0);
    if (changeBounded(withEntered(m_table->points(), row, column, pasted.texts, limits), Paste))
        m_table->selectRows(row, row + static_cast<int>(pasted.texts.size()) - 1);
}

void PointActions::selectAll()
{
    m_table->selectAll();
}

void PointActions::undo()
{
    m_table->takeBack();
}

void PointActions::redo()
{
    m_table->bringBack();
}

void PointActions::clear()
{
    askBefore(m_table->window(), tr("Clear List"), tr("Do you want to clear List?"), tr("Yes"),
              [this] {
                  change({0, m_table->rowCount(), {}}, Clear);
              })
        ->setObjectName(QStringLiteral("clear_question"));
}

void PointActions::retranslate()
{
    for (std::size_t i = 0; i < commandCount; ++i)
        m_actions[i]->setText(tr(rows[i].text));
    retranslateInsert();
    m_fillMenu->setTitle(tr("Fill a column"));
}

void PointActions::retranslateInsert()
{
    m_actions[Insert]->setText(m_rowsToInsert == 1 ? tr(rows[Insert].text)
                                                   : tr("Insert %n rows", nullptr, m_rowsToInsert));
}
