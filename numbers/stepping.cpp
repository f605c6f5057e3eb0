#include "numbers/stepping.h"

#include "numbers/number_text.h"

#include <algorithm>
#include <limits>

namespace
{
const QLatin1Char point('.');
const QLatin1Char zero('0');

bool isDigit(QChar c)
{
    return c >= zero && c <= QLatin1Char('9');
}

qint64 saturatedSum(qint64 a, qint64 b)
{
    using Limits = std::numeric_limits<qint64>;
    if (b > 0 && a > Limits::max() - b)
        return Limits::max();
    if (b < 0 && a < Limits::min() - b)
        return Limits::min();
    return a + b;
}

int decimalsOf(const QString& plainText)
{
    const int pointAt = plainText.indexOf(point);
    return pointAt < 0 ? 0 : plainText.size() - pointAt - 1;
}

/// The sum as decimal arithmetic gives it: 0.1 + 0.2 is 0.3. More than 15 decimals exceed the
/// precision of a double.
QString decimalSum(const QString& text, double increment)
{
    const int decimals = std::max(decimalsOf(text), decimalsOf(shortestText(increment)));
    const double sum = toNumber(text) + increment;
    return shortestText(toNumber(fixedText(sum, std::min(decimals, 15))));
}

/// A plain decimal number as a sign, its digits and how many of these are decimals.
struct Decimal {
    bool isNegative = false;
    QString digits;
    int decimals = 0;
};

std::optional<Decimal> parsedDecimal(const QString& text)
{
    QString rest = withoutBlanks(text);
    Decimal result;
    result.isNegative = rest.startsWith(QLatin1Char('-'));
    if (result.isNegative)
        rest.remove(0, 1);
    result.decimals = decimalsOf(rest);
    const int pointAt = rest.indexOf(point);
    if (pointAt >= 0)
        rest.remove(pointAt, 1);
    if (rest.isEmpty() || !std::all_of(rest.cbegin(), rest.cend(), isDigit))
        return std::nullopt;
    result.digits = rest;
    return result;
}

/// Digits before the point; only these and the decimals have a place in the text.
int wholeDigits(const Decimal& number)
{
    return number.digits.size() - number.decimals;
}

void padToPlace(Decimal& number, int decimalPlace)
{
    const int missingDecimals = -decimalPlace - number.decimals;
    if (missingDecimals > 0) {
        number.digits += QString(missingDecimals, zero);
        number.decimals += missingDecimals;
    }
    const int missingWhole = decimalPlace + 1 - wholeDigits(number);
    if (missingWhole > 0)
        number.digits.prepend(QString(missingWhole, zero));
}

/// Adds one unit at the digit's place; the carry may lengthen the number.
void addUnit(QString& digits, int at)
{
    for (; at >= 0; --at) {
        if (digits.at(at) != QLatin1Char('9')) {
            digits[at] = QChar(digits.at(at).unicode() + 1);
            return;
        }
        digits[at] = zero;
    }
    digits.prepend(QLatin1Char('1'));
}

/// Takes one unit away at the digit's place; false when the difference is negative: the digits then
/// hold its magnitude.
bool subtractUnit(QString& digits, int at)
{
    for (; at >= 0; --at) {
        if (digits.at(at) != zero) {
            digits[at] = QChar(digits.at(at).unicode() - 1);
            return true;
        }
        digits[at] = QLatin1Char('9');
    }
    for (QChar& digit : digits)
        digit = QChar(zero.unicode() + '9' - digit.unicode());
    addUnit(digits, digits.size() - 1);
    return false;
}

QString textOf(const Decimal& number)
{
    const int whole = wholeDigits(number);
    int first = 0;
    while (first < whole - 1 && number.digits.at(first) == zero)
        ++first;
    QString text = whole > 0 ? number.digits.mid(first, whole - first) : QString(zero);
    if (number.decimals > 0)
        text += point + number.digits.right(number.decimals);
    if (number.isNegative)
        text.prepend(QLatin1Char('-'));
    return text;
}
} // namespace

bool stopsAtZero(StepKind kind, StepFlags flags)
{
    const bool isExempt = kind == StepKind::Frequency || kind == StepKind::Power ||
                          kind == StepKind::PmDeviation || kind == StepKind::LfAmplitude;
    return (!isExempt || flags.silent) && !flags.forceFloat;
}

QString steppedText(const QString& text, int direction, StepKind kind, double step, StepFlags flags)
{
    QString result;
    if (!text.contains(point) && !flags.forceFloat) {
        result = QString::number(saturatedSum(toWholeNumber(text), direction * truncated(step)));
    } else {
        result = decimalSum(withoutBlanks(text), direction * step);
        const bool hasPoint = result.contains(point);
        if (!hasPoint && (kind == StepKind::Power || kind == StepKind::PmDeviation))
            result += QLatin1String(".00");
        else if (!hasPoint && kind == StepKind::LfAmplitude)
            result += QLatin1String(".000");
    }
    if (stopsAtZero(kind, flags) && !(toNumber(result) > 0.0))
        result = zero;
    return formatGrouped(result);
}

std::optional<int> decimalPlaceAt(const QString& text, int cursor)
{
    const std::optional<Decimal> number = parsedDecimal(text);
    if (!number)
        return std::nullopt;
    const QString before = text.left(cursor);
    const int digitsBefore =
        static_cast<int>(std::count_if(before.cbegin(), before.cend(), isDigit));
    return wholeDigits(*number) - std::max(digitsBefore, 1);
}

int cursorBehindPlace(const QString& text, int decimalPlace)
{
    const int pointAt = text.indexOf(point);
    const QString whole = pointAt < 0 ? text : text.left(pointAt);
    int digitsBefore =
        static_cast<int>(std::count_if(whole.cbegin(), whole.cend(), isDigit)) - decimalPlace;
    int cursor = 0;
    for (int i = 0; i < text.size() && digitsBefore > 0; ++i) {
        if (isDigit(text.at(i))) {
            --digitsBefore;
            cursor = i + 1;
        }
    }
    return cursor;
}

QString steppedPlace(const QString& text, int decimalPlace, int direction, bool stopAtZero)
{
    std::optional<Decimal> number = parsedDecimal(text);
    if (!number)
        return text;
    padToPlace(*number, decimalPlace);
    QString& digits = number->digits;
    const int at = wholeDigits(*number) - 1 - decimalPlace;
    if ((direction > 0) != number->isNegative)
        addUnit(digits, at);
    else if (!subtractUnit(digits, at))
        number->isNegative = !number->isNegative;
    const bool isZero =
        std::all_of(digits.cbegin(), digits.cend(), [](QChar c) { return c == zero; });
    if (isZero || (stopAtZero && number->isNegative)) {
        digits.fill(zero);
        number->isNegative = false;
    }
    return formatGrouped(textOf(*number));
}
