#include "app/power_ceiling.h"

#include "fields/number_edit.h"
#include "numbers/number_text.h"
#include "ui/named.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace
{
constexpr int longestPower = 5;
constexpr int fieldWidth = 116;

bool isWholeOrEmpty(const QString& text)
{
    bool isWhole = false;
    text.toInt(&isWhole);
    return isWhole || text.isEmpty();
}
} // namespace

PowerCeiling::PowerCeiling(std::optional<int> ceilingDbm, const FieldContext& context,
                           QWidget* parent)
    : PanelDialog(tr("Highest power"),
                  tr("The program sets no power above this, whether typed, stepped or "
                     "opened. Empty: the limit of the instrument."),
                  parent),
      m_field(named("line_ceiling",
                    new NumberEdit(Quantity::HighestPower, context, this,
                                   ceilingDbm ? QString::number(*ceilingDbm) : QString())))
{
    setObjectName(QStringLiteral("PowerCeiling"));
    m_field->setMaxLength(longestPower);
    m_field->setFixedWidth(fieldWidth);
    m_field->setAlignment(Qt::AlignRight);
    m_field->describe();
    auto* line = new QHBoxLayout;
    line->addWidget(m_field);
    line->addWidget(new QLabel(tr("dBm"), this));
    line->addStretch(1);
    content().addLayout(line);

    QPushButton* take = addButton("take_ceiling", tr("OK"), tr("Apply this highest power (Enter)"));
    QPushButton* cancel = addButton("cancel", tr("Cancel"), tr("Leave it as it is (Esc)"));
    take->setDefault(true);
    connect(take, &QPushButton::clicked, this, &PowerCeiling::choose);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_field, &QLineEdit::textChanged, take,
            [take](const QString& text) { take->setEnabled(isWholeOrEmpty(withoutBlanks(text))); });
    m_field->setFocus();
    m_field->selectAll();
}

void PowerCeiling::choose()
{
    const QString text = withoutBlanks(m_field->text());
    accept();
    emit chosen(text.isEmpty() ? std::nullopt : std::optional<int>(text.toInt()));
}
