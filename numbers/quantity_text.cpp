#include "numbers/quantity_text.h"

#include "numbers/number_text.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace
{
constexpr int longestText = 64;
const QLatin1Char comma(',');
const QLatin1Char point('.');

struct UnitWord {
    Unit unit;
    const char* word;
    const char* russianWord;
    int powerOfTen;
};
constexpr UnitWord unitWords[] = {
    {Unit::Hertz, "Hz", "Гц", 0},    {Unit::Hertz, "kHz", "кГц", 3},
    {Unit::Hertz, "MHz", "МГц", 6},  {Unit::Hertz, "GHz", "ГГц", 9},
    {Unit::Second, "s", "с", 0},     {Unit::Second, "ms", "мс", -3},
    {Unit::Second, "us", "мкс", -6}, {Unit::Second, "\u00b5s", "\u03bcs", -6},
    {Unit::Second, "ns", "нс", -9},  {Unit::Volt, "V", "В", 0},
    {Unit::Volt, "mV", "мВ", -3},    {Unit::Percent, "%", "%", 0},
    {Unit::Radian, "rad", "рад", 0}, {Unit::Radian, "mrad", "мрад", -3},
    {Unit::Dbm, "dBm", "дБм", 0},
};
// Levels that a column of dBm must not be taken for.
constexpr const char* otherLevels[] = {"W", "mW", "dBW", "dBuV", "dB\u00b5V", "Вт", "мВт", "дБмкВ"};

bool isWord(const QString& typed, const char* word)
{
    return typed.compare(QString::fromUtf8(word), Qt::CaseInsensitive) == 0;
}

/// Null where the word is no unit.
const UnitWord* unitOfWord(const QString& word)
{
    const auto* found =
        std::find_if(std::begin(unitWords), std::end(unitWords), [&](const UnitWord& row) {
            return isWord(word, row.word) || isWord(word, row.russianWord);
        });
    return found != std::end(unitWords) ? found : nullptr;
}

/// The power of ten of the kind's own unit that a word, or a letter that may be typed, stands for.
std::optional<int> powerOfWord(const QString& typed, FieldKind kind)
{
    const OwnUnit own = ownUnit(kind);
    const UnitWord* found = unitOfWord(typed);
    if (found && found->unit == own.unit)
        return found->powerOfTen - own.powerOfTen;
    return typed.size() == 1 ? unitKeyPower(typed.at(0), unitFamily(kind)) : std::nullopt;
}

/// The last separator stands before the fraction, unless it stands there more than once.
QString withOnePoint(QString number)
{
    const int lastComma = number.lastIndexOf(comma);
    const int lastPoint = number.lastIndexOf(point);
    const QChar fraction = lastComma > lastPoint ? comma : point;
    number.remove(fraction == comma ? point : comma);
    if (number.count(fraction) > 1)
        number.remove(fraction);
    return number.replace(fraction, point);
}

/// Turns blanks of any kind into plain ones, except those that separate cells.
QString withPlainBlanks(const QString& text)
{
    QString result = text.trimmed();
    std::replace_if(
        result.begin(), result.end(),
        [](QChar c) { return c.category() == QChar::Separator_Space; }, QLatin1Char(' '));
    return result.replace(QChar(0x2212), QLatin1Char('-'));
}
} // namespace

std::optional<QString> readQuantity(const QString& text, FieldKind kind, int plainPower)
{
    // Groups of blanks or none, of commas, of points; with and without a fraction.
    static const QRegularExpression quantity(
        QStringLiteral("^([-+]?) ?("
                       "(?:[0-9]{1,3}(?: [0-9]{3})+|[0-9]+)(?:[.,][0-9]*)?|[.,][0-9]+"
                       "|[0-9]{1,3}(?:,[0-9]{3}){2,}(?:\\.[0-9]*)?|[0-9]{1,3},[0-9]{3}\\.[0-9]*"
                       "|[0-9]{1,3}(?:\\.[0-9]{3}){2,}(?:,[0-9]*)?|[0-9]{1,3}\\.[0-9]{3},[0-9]*)"
                       "(?:[eE]([-+]?[0-9]{1,2}))? ?([^0-9\\s.,+-]*)$"));
    if (text.size() > longestText)
        return std::nullopt;
    const QRegularExpressionMatch match = quantity.match(withPlainBlanks(text));
    if (!match.hasMatch())
        return std::nullopt;
    const QString word = match.captured(4);
    const std::optional<int> power = word.isEmpty() ? plainPower : powerOfWord(word, kind);
    if (!power)
        return std::nullopt;
    const QString number = withOnePoint(withoutBlanks(match.captured(2)));
    const QString sign = match.captured(1) == QLatin1String("-") ? match.captured(1) : QString();
    return shiftedDecimal(sign + number, match.captured(3).toInt() + *power - plainPower);
}

HeadingUnit headingUnit(const QString& heading, FieldKind kind)
{
    static const QRegularExpression inBrackets(QStringLiteral("[\\[(]\\s*([^\\])]*?)\\s*[\\])]"));
    static const QRegularExpression lastWord(QStringLiteral("([\\p{L}%]+)[^\\p{L}%]*$"));
    const QRegularExpressionMatch bracket = inBrackets.match(heading);
    const QString word = (bracket.hasMatch() ? bracket : lastWord.match(heading)).captured(1);
    const OwnUnit own = ownUnit(kind);
    const UnitWord* found = unitOfWord(word);
    if (found && found->unit == own.unit)
        return {found->powerOfTen - own.powerOfTen, false};
    const bool isLevel = std::any_of(std::begin(otherLevels), std::end(otherLevels),
                                     [&](const char* level) { return isWord(word, level); });
    return {0, bracket.hasMatch() && (found || isLevel)};
}
