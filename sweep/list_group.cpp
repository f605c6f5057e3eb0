#include "sweep/list_group.h"

#include "sweep/list/point_actions.h"
#include "sweep/list/point_table.h"
#include "sweep/mode_list.h"
#include "sweep/run_button.h"
#include "ui/describe.h"
#include "ui/eliding_label.h"
#include "ui/named.h"

#include <QAction>
#include <QDir>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QVariant>

namespace
{
constexpr int spacing = 8;
constexpr int margin = 12;
constexpr int leastTableHeight = 112;
constexpr int mostRowsAtOnce = 999;
constexpr int countWidth = 42;
constexpr int iconSide = 20;

struct Tool {
    const char* name;
    PointActions::Command command;
    bool startsGroup;
};
constexpr Tool tools[] = {
    {"add_List", PointActions::Insert, false},
    {"delete_List", PointActions::Delete, false},
    {"duplicate_List", PointActions::Duplicate, false},
    {"up_List", PointActions::MoveUp, false},
    {"down_List", PointActions::MoveDown, false},
    {"fill_List", PointActions::FillLinear, true}, // opens the menu of the ways to fill
    {"generate_List", PointActions::Generate, false},
    {"copy_List", PointActions::Copy, true},
    {"paste_List", PointActions::Paste, false},
    {"undo_List", PointActions::Undo, true},
    {"redo_List", PointActions::Redo, false},
    {"clear_List", PointActions::Clear, true},
};

QPushButton* namedButton(const char* name, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    return button;
}
} // namespace

ListGroup::ListGroup(const FieldContext& context, TriggerGroup& trigger, QWidget* parent)
    : QGroupBox(parent), m_title(named("title_List", new QLabel(this))),
      m_file(named("file_List", new ElidingLabel(this))), m_table(new PointTable(context, this)),
      m_actions(new PointActions(m_table)), m_mode(new ModeList(trigger, this)),
      m_addCount(named("add_count", new QSpinBox(this))),
      m_fill(m_actions->newFillButton(QStringLiteral("fill_List"), this)),
      m_run(new RunButton(QStringLiteral("button_List"), this)),
      m_save(namedButton("save_List", this)), m_open(namedButton("open_List", this)),
      m_recent(namedButton("recent_List", this)), m_recentMenu(new QMenu(m_recent))
{
    setObjectName(QStringLiteral("List__"));
    setProperty("section", true);
    m_title->setProperty("sectionTitle", true);
    m_file->setProperty("sectionSummary", true);
    m_file->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_recent->setProperty("tool", true);
    m_recent->setIconSize(QSize(iconSide, iconSide));
    m_recent->setIcon(QIcon(QStringLiteral(":/images/recent.png")));
    m_recent->setMenu(m_recentMenu);
    m_recent->setFocusPolicy(Qt::TabFocus);
    m_table->setMinimumHeight(leastTableHeight);
    build();
    connect(m_table, &PointTable::pointsChanged, this,
            [this] { m_mode->showPoint(m_table->highlightedPoint(), m_table->rowCount()); });
    retranslate();
}

QPushButton& ListGroup::run() const
{
    return *m_run;
}

void ListGroup::build()
{
    auto* header = new QHBoxLayout;
    header->setSpacing(spacing);
    header->addWidget(m_title);
    header->addWidget(m_file, 1);
    header->addWidget(m_open);
    header->addWidget(m_recent);
    header->addWidget(m_save);
    header->addWidget(m_run);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, spacing, margin, spacing);
    column->setSpacing(spacing);
    column->addLayout(header);
    column->addWidget(m_mode);
    column->addWidget(m_table, 1);
    column->addLayout(buildTools());
}

void ListGroup::showFile(const QString& title, const QString& path, bool hasRecent)
{
    m_file->setText(title);
    m_file->setToolTip(QDir::toNativeSeparators(path));
    m_recent->setEnabled(hasRecent);
}

/// How many rows to add, before the button that adds them; Return adds them, too.
void ListGroup::buildAddCount()
{
    m_addCount->setRange(1, mostRowsAtOnce);
    m_addCount->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_addCount->setAlignment(Qt::AlignRight);
    m_addCount->setFixedWidth(countWidth);
    connect(m_addCount, qOverload<int>(&QSpinBox::valueChanged), m_actions,
            &PointActions::setRowsToInsert);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, m_addCount);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this] {
            m_addCount->interpretText();
            m_actions->action(PointActions::Insert)->trigger();
        });
    }
}

QHBoxLayout* ListGroup::buildTools()
{
    buildAddCount();
    auto* row = new QHBoxLayout;
    row->setSpacing(spacing / 2);
    row->addWidget(m_addCount);
    for (const Tool& tool : tools) {
        const bool isFill = tool.command == PointActions::FillLinear;
        if (tool.startsGroup)
            row->addStretch(1);
        row->addWidget(isFill ? m_fill
                              : m_actions->newButton(tool.command, QLatin1String(tool.name), this));
    }
    return row;
}

void ListGroup::retranslate()
{
    m_title->setText(tr("List"));
    setAccessibleName(m_title->text());
    m_run->setTexts(tr("Run the list"), tr("Stop the list"), tr("Run the list while pressed in"));
    m_save->setText(tr("Save List"));
    describe(m_save, m_save->text(), tr("Save the list as a CSV file"));
    m_open->setText(tr("Open List"));
    describe(m_open, m_open->text(), tr("Replace the list by that of a CSV file"));
    describe(m_recent, tr("Recent lists"), tr("Open one of the lists used last"));
    describe(m_fill, tr("Fill a column"),
             tr("Fill a column between its first and its last value, or down"));
    describe(m_addCount, tr("Rows to add"), tr("How many rows the button beside it adds"));
    m_table->retranslate();
    m_actions->retranslate();
    m_mode->retranslate();
}
