#include "fields/range_text.h"

#include "fields/number_edit.h"
#include "fields/power_guard.h"
#include "link/instrument_limits.h"
#include "numbers/entry_units.h"
#include "numbers/number_text.h"
#include "numbers/step_table.h"
#include "numbers/unit_keys.h"

QString withUnit(const QString& number, const QString& unit)
{
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

QString rangeText(const NumberEdit& field, const PowerGuard* guard)
{
    const FieldKind kind = field.kind();
    const int power = field.unitPower();
    const QString unit = unitText(entryUnits(kind, power), power);
    // No instrument reports how many points are allowed.
    Range limits = field.range();
    const std::optional<int> ceiling =
        guard && kind == FieldKind::Power ? guard->ceilingDbm() : std::nullopt;
    if (ceiling && !limits.isKnown())
        return NumberEdit::tr("at most %1").arg(withUnit(QString::number(*ceiling), unit));
    if (!limits.isKnown())
        return QString();
    if (ceiling)
        limits.max = qMin(limits.max, static_cast<double>(*ceiling));
    const auto text = [&](double limit) {
        return grouped(shiftedDecimal(shortestText(limit), -power), kind);
    };
    return withUnit(text(limits.min) + QStringLiteral(" … ") + text(limits.max), unit);
}

QString stepSizeText(const NumberEdit& field)
{
    const std::optional<StepKind> kind = stepKind(field.quantity());
    if (!kind)
        return QString();
    return withUnit(stepText(field.context().steps.step(*kind)),
                    unitText(stepUnits(field.kind()), 0));
}
