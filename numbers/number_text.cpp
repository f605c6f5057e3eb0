#include "numbers/number_text.h"

#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace
{
const QLatin1Char point('.');
const QLatin1Char zero('0');
} // namespace

QString withoutBlanks(const QString& text)
{
    QString result;
    result.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(result),
                 [](QChar c) { return !c.isSpace(); });
    return result;
}

bool readsAsNumber(const QString& text)
{
    const QString number = withoutBlanks(text);
    const bool isAscii =
        std::all_of(number.begin(), number.end(), [](QChar c) { return c.unicode() < 0x80; });
    bool isRead = false;
    const double value = number.toDouble(&isRead);
    return isAscii && isRead && std::isfinite(value);
}

double toNumber(const QString& text)
{
    bool isNumber = false;
    const double value = withoutBlanks(text).toDouble(&isNumber);
    // "nan" and "inf" convert; what is too large fails with an infinity.
    if (isNumber)
        return std::isfinite(value) ? value : 0.0;
    return std::isinf(value) ? std::copysign(std::numeric_limits<double>::max(), value) : 0.0;
}

qint64 toWholeNumber(const QString& text)
{
    const QString digits = withoutBlanks(text);
    bool isNumber = false;
    const qint64 value = digits.toLongLong(&isNumber);
    if (isNumber)
        return value;
    static const QRegularExpression wholeNumber(QStringLiteral("^[+-]?[0-9]+$"));
    if (!wholeNumber.match(digits).hasMatch())
        return 0;
    return digits.startsWith(QLatin1Char('-')) ? std::numeric_limits<qint64>::min()
                                               : std::numeric_limits<qint64>::max();
}

qint64 truncated(double value)
{
    // The largest 64-bit integer is no double: its neighbour above is 2^63.
    constexpr double limit = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (value >= limit)
        return std::numeric_limits<qint64>::max();
    if (value < -limit)
        return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(value);
}

QString fixedText(double value, int decimals)
{
    const QString text = QString::number(value, 'f', decimals);
    const bool isZero = std::none_of(text.begin(), text.end(), [](QChar c) {
        return c >= QLatin1Char('1') && c <= QLatin1Char('9');
    });
    return isZero && text.startsWith(QLatin1Char('-')) ? text.mid(1) : text;
}

QString shortestText(double value)
{
    return fixedText(value, QLocale::FloatingPointShortest);
}

QString generalText(double value)
{
    return QString::number(value, 'g', 6);
}

QString secondsText(const QString& microseconds)
{
    return generalText(toNumber(microseconds) * 1e-6);
}

QString groupDigits(const QString& text)
{
    QString digits = text;
    digits.remove(QLatin1Char(' '));
    QString result;
    result.reserve(digits.size() + digits.size() / 3);
    for (int i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0)
            result += QLatin1Char(' ');
        result += digits.at(i);
    }
    return result;
}

QString formatGrouped(const QString& text)
{
    if (!text.contains(point))
        return groupDigits(text);
    return groupDigits(text.section(point, 0, 0)) + point + text.section(point, 1, 1);
}

bool isPlainDecimal(const QString& text)
{
    static const QRegularExpression plainDecimal(
        QStringLiteral("^-?([0-9]+\\.?[0-9]*|\\.[0-9]+)$"));
    return plainDecimal.match(text).hasMatch();
}

QString shiftedDecimal(const QString& number, int powerOfTen)
{
    const bool isNegative = number.startsWith(QLatin1Char('-'));
    QString whole = number.section(point, 0, 0).mid(isNegative ? 1 : 0);
    QString fraction = number.section(point, 1, 1);
    if (powerOfTen >= 0) {
        fraction = fraction.leftJustified(powerOfTen, zero);
        whole += fraction.left(powerOfTen);
        fraction.remove(0, powerOfTen);
    } else {
        whole = whole.rightJustified(-powerOfTen, zero);
        fraction.prepend(whole.right(-powerOfTen));
        whole.chop(-powerOfTen);
    }
    const auto* firstDigit =
        std::find_if(whole.cbegin(), whole.cend(), [](QChar c) { return c != zero; });
    whole.remove(0, static_cast<int>(firstDigit - whole.cbegin()));
    if (whole.isEmpty())
        whole = zero;
    if (isNegative)
        whole.prepend(QLatin1Char('-'));
    return trimZeros(whole + point + fraction);
}

QString shiftedText(const QString& text, int powerOfTen)
{
    const QString number = withoutBlanks(text);
    if (powerOfTen == 0 || !isPlainDecimal(number))
        return text;
    return formatGrouped(shiftedDecimal(number, powerOfTen));
}

QString trimZeros(const QString& text)
{
    const auto isSeparator = [](QChar c) { return c == QLatin1Char('.') || c == QLatin1Char(','); };
    if (std::none_of(text.begin(), text.end(), isSeparator))
        return text;
    QString result = text;
    while (result.endsWith(QLatin1Char('0')))
        result.chop(1);
    if (!result.isEmpty() && isSeparator(result.back()))
        result.chop(1);
    return result;
}

QString padTwoDecimals(const QString& text)
{
    QString result = text;
    if (!result.contains(QLatin1Char('.')))
        result += QLatin1String(".00");
    // The dot matches any character on purpose.
    static const QRegularExpression twoDecimals(QStringLiteral(".[0-9]{2}"));
    if (!twoDecimals.match(result).hasMatch())
        result += QLatin1Char('0');
    return result;
}

QString withLeastDecimals(const QString& text, int leastDecimals)
{
    if (leastDecimals == 2)
        return padTwoDecimals(text);
    const int decimals = text.contains(point) ? text.size() - text.indexOf(point) - 1 : 0;
    if (decimals >= leastDecimals)
        return text;
    const QString padding(leastDecimals - decimals, zero);
    return text.contains(point) ? text + padding : text + point + padding;
}

QString parseUnitReply(const QString& reply)
{
    struct Unit {
        const char* word;
        int zeros;
        double factor;
    };
    static constexpr Unit units[] = {{"MHZ", 6, 1e6}, {"KHZ", 3, 1e3}, {"GHZ", 9, 1e9}};

    QString result = reply;
    const QStringList parts = reply.split(QLatin1Char(' '));
    if (parts.size() == 2) {
        const QString& number = parts.first();
        const auto* unit = std::find_if(std::begin(units), std::end(units), [&](const Unit& u) {
            return parts.last().contains(QLatin1String(u.word), Qt::CaseInsensitive);
        });
        if (unit != std::end(units))
            result = number.contains(QLatin1Char('.'))
                         ? generalText(toNumber(number) * unit->factor)
                         : number + QString(unit->zeros, QLatin1Char('0'));
    }
    result.remove(QLatin1Char('\n'));
    return result;
}
