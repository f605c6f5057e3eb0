#include "sweep/list_group.h"

#include "panel/describe.h"
#include "sweep/point_table.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

namespace
{
constexpr int spacing = 8;
constexpr int margin = 12;

QPushButton* namedButton(const char* name, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    return button;
}
} // namespace

ListGroup::ListGroup(QWidget* parent)
    : QGroupBox(parent), m_title(new QLabel(this)), m_table(new PointTable(this)),
      m_run(namedButton("button_List", this)), m_save(namedButton("save_List", this)),
      m_open(namedButton("open_List", this))
{
    setObjectName(QStringLiteral("List__"));
    setProperty("section", true);
    m_title->setObjectName(QStringLiteral("title_List"));
    m_title->setProperty("sectionTitle", true);
    m_run->setCheckable(true);

    auto* header = new QHBoxLayout;
    header->setSpacing(spacing);
    header->addWidget(m_title, 1);
    header->addWidget(m_open);
    header->addWidget(m_save);
    header->addWidget(m_run);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(margin, spacing, margin, margin);
    column->setSpacing(spacing);
    column->addLayout(header);
    column->addWidget(m_table, 1);
    retranslate();
}

void ListGroup::retranslate()
{
    m_title->setText(tr("List"));
    setAccessibleName(m_title->text());
    m_run->setText(tr("Run"));
    describe(m_run, tr("Run the list"), tr("Run the list while pressed in"));
    m_save->setText(tr("Save List"));
    describe(m_save, m_save->text(), tr("Save the list as a CSV file"));
    m_open->setText(tr("Open List"));
    describe(m_open, m_open->text(), tr("Replace the list by that of a CSV file"));
    m_table->retranslate();
}
