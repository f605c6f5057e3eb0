#include "numbers/readable_quantity.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
constexpr char context[] = "Unit";

const char* const unitSymbols[] = {"",
                                   QT_TRANSLATE_NOOP("Unit", "s"),
                                   QT_TRANSLATE_NOOP("Unit", "Hz"),
                                   QT_TRANSLATE_NOOP("Unit", "%"),
                                   QT_TRANSLATE_NOOP("Unit", "rad"),
                                   QT_TRANSLATE_NOOP("Unit", "V"),
                                   QT_TRANSLATE_NOOP("Unit", "dBm"),
                                   QT_TRANSLATE_NOOP("Unit", "dB")};

struct Prefix {
    int powerOfTen;
    const char* letter;
};
const Prefix prefixes[] = {
    {-12, QT_TRANSLATE_NOOP("Unit", "p")}, {-9, QT_TRANSLATE_NOOP("Unit", "n")},
    {-6, QT_TRANSLATE_NOOP("Unit", "µ")},  {-3, QT_TRANSLATE_NOOP("Unit", "m")},
    {3, QT_TRANSLATE_NOOP("Unit", "k")},   {6, QT_TRANSLATE_NOOP("Unit", "M")},
    {9, QT_TRANSLATE_NOOP("Unit", "G")},
};

/// The power of ten of the first of the digits that are shown.
int leadingPower(double value, int digits)
{
    return QString::number(value, 'e', digits - 1).section(QLatin1Char('e'), 1).toInt();
}

bool takesPrefix(Unit unit)
{
    return unit != Unit::None && unit != Unit::Percent && unit != Unit::Dbm;
}

int largestPower(Unit unit)
{
    return unit == Unit::Second ? 0 : std::prev(std::end(prefixes))->powerOfTen;
}
} // namespace

QString unitSymbol(Unit unit, int powerOfTen)
{
    const auto* prefix =
        std::find_if(std::begin(prefixes), std::end(prefixes),
                     [powerOfTen](const Prefix& p) { return p.powerOfTen == powerOfTen; });
    const auto translated = [](const char* text) {
        return *text == '\0' ? QString() : QCoreApplication::translate(context, text);
    };
    const QString symbol = translated(unitSymbols[static_cast<int>(unit)]);
    return prefix == std::end(prefixes) ? symbol : translated(prefix->letter) + symbol;
}

QString readableQuantity(double value, Unit unit, int digits)
{
    const int leading = value == 0.0 ? 0 : leadingPower(value, digits);
    const int thousands = takesPrefix(unit) ? static_cast<int>(std::floor(leading / 3.0)) : 0;
    const int power = std::clamp(3 * thousands, prefixes[0].powerOfTen, largestPower(unit));
    // Beyond the largest prefix all digits before the point are written.
    QString number =
        QString::number(value * std::pow(10.0, -power), 'g', std::max(digits, leading - power + 1));
    number.replace(QLatin1Char('-'), QChar(0x2212));
    const QString symbol = unitSymbol(unit, power);
    const QString text = value == 0.0 ? QStringLiteral("0") : number;
    return symbol.isEmpty() ? text : text + QLatin1Char(' ') + symbol;
}
