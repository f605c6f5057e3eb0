#include "app/power_ceiling.h"

#include "fields/number_edit.h"
#include "ui/named.h"

namespace
{
constexpr int longestPower = 5;

bool isWhole(const QString& text)
{
    bool isNumber = false;
    text.toInt(&isNumber);
    return isNumber;
}
} // namespace

PowerCeiling::PowerCeiling(std::optional<int> ceilingDbm, const FieldContext& context,
                           QWidget* parent)
    : NumberDialog({tr("Highest power"),
                    tr("The program sets no power above this, whether typed, stepped or "
                       "opened. Empty: the limit of the instrument."),
                    tr("dBm"), tr("Apply this highest power (Enter)"),
                    QStringLiteral("take_ceiling")},
                   parent)
{
    setObjectName(QStringLiteral("PowerCeiling"));
    auto* field = named("line_ceiling",
                        new NumberEdit(Quantity::HighestPower, context, this,
                                       ceilingDbm ? QString::number(*ceilingDbm) : QString()));
    field->setMaxLength(longestPower);
    field->describe();
    ask(*field, isWhole);
}
