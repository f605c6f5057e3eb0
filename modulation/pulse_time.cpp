#include "modulation/pulse_time.h"

#include "numbers/number_text.h"
#include "numbers/readable_quantity.h"
#include "numbers/unit_keys.h"
#include "fields/numeric_field.h"
#include "fields/unit_key_filter.h"

#include <QAbstractButton>
#include <QLineEdit>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace
{
constexpr int microsecondPower = -6;
/// The units in the order they are cycled, as powers of ten of a microsecond.
constexpr int unitPowers[] = {0, 3, 6, -3};
constexpr std::ptrdiff_t unitCount = 4;
} // namespace

PulseTime::PulseTime(QLineEdit* field, QAbstractButton* unitButton, Quantity quantity)
    : m_field(field), m_unitButton(unitButton), m_kind(fieldKind(quantity))
{
    setUpNumericField(field, quantity);
    retranslate();
}

QString PulseTime::textUs() const
{
    return inMicroseconds(m_field->text());
}

QString PulseTime::acceptedTextUs() const
{
    return inMicroseconds(acceptedText(m_field));
}

QString PulseTime::inMicroseconds(const QString& text) const
{
    const int power = unitPower(m_field);
    const QString number = convertUnitKeys(text, unitFamily(m_kind), power);
    if (number.isEmpty())
        return QString();
    return clampText(isPlainDecimal(number) ? shiftedDecimal(number, power) : number, 0.0, 0.0,
                     m_kind);
}

double PulseTime::microseconds() const
{
    return toNumber(textUs());
}

QString PulseTime::shownText(const QString& textUs) const
{
    const int power = unitPower(m_field);
    const QString number = withoutBlanks(textUs);
    if (power == 0 || !isPlainDecimal(number))
        return textUs;
    return formatGrouped(shiftedDecimal(number, -power));
}

void PulseTime::showAcceptedUs(const QString& textUs)
{
    showAccepted(m_field, shownText(textUs));
}

void PulseTime::nextUnit()
{
    const auto* const unit =
        std::find(std::begin(unitPowers), std::end(unitPowers), unitPower(m_field));
    const auto index = (unit - std::begin(unitPowers) + 1) % unitCount;
    setUnitOf(unitPowers[index]);
}

void PulseTime::useMicroseconds()
{
    setUnitOf(0);
}

void PulseTime::setUnitOf(int power)
{
    if (power == unitPower(m_field))
        return;
    const QString inUs = textUs();
    const bool isAccepted = m_field->text() == acceptedText(m_field);
    setUnitPower(m_field, power);
    if (isAccepted)
        showAccepted(m_field, shownText(inUs));
    else
        m_field->setText(shownText(inUs));
    retranslate();
}

void PulseTime::retranslate()
{
    m_unitButton->setText(unitSymbol(Unit::Second, microsecondPower + unitPower(m_field)));
}
