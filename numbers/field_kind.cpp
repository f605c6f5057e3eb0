#include "numbers/field_kind.h"

#include "numbers/number_text.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace
{
double hertzFromReply(const QString& reply)
{
    return toNumber(parseUnitReply(reply));
}

struct FieldRow {
    FieldKind kind;
    OwnUnit unit;
    UnitFamily units;
    EntryPattern pattern;
    int replyDecimals;
    int entryDecimals;
    int leastDecimals;
    double (*valueOfReply)(const QString& reply);
};

using K = FieldKind;
using U = UnitFamily;
using P = EntryPattern;

// Six decimals are what "%lf" sends. The least decimals keep a point in fields whose steps have
// fractions: a text without one is stepped in whole numbers.
constexpr FieldRow fieldRows[] = {
    {K::Frequency, {Unit::Hertz, 0}, U::Frequency, P::Frequency, 0, 0, 0, hertzFromReply},
    {K::Power, {Unit::Dbm, 0}, U::None, P::SignedWhole, 0, 2, 0, toNumber},
    {K::ExternalReference, {Unit::Hertz, 6}, U::None, P::Whole, 0, 0, 0, megahertzFromReply},
    {K::PulsePeriod, {Unit::Second, -6}, U::Time, P::Time, 6, 6, 0, microsecondsFromReply},
    {K::PulseWidth, {Unit::Second, -6}, U::Time, P::Time, 6, 6, 2, microsecondsFromReply},
    {K::ModulationRate, {Unit::Hertz, 0}, U::Frequency, P::Frequency, 6, 6, 0, hertzFromReply},
    {K::AmDepth, {Unit::Percent, 0}, U::None, P::Percent, 6, 6, 2, toNumber},
    {K::FmDeviation, {Unit::Hertz, 0}, U::Frequency, P::Frequency, 7, 7, 0, hertzFromReply},
    {K::PmDeviation, {Unit::Radian, 0}, U::None, P::Deviation, 6, 6, 2, toNumber},
    {K::Duty, {Unit::Percent, 0}, U::None, P::Whole, 0, 0, 0, toNumber},
    {K::LfFrequency, {Unit::Hertz, 0}, U::Frequency, P::Frequency, 6, 6, 1, hertzFromReply},
    {K::LfAmplitude, {Unit::Volt, 0}, U::Voltage, P::Voltage, 6, 6, 3, toNumber},
    {K::LfDuty, {Unit::Percent, 0}, U::None, P::Whole, 0, 0, 0, toNumber},
    {K::Dwell, {Unit::Second, -6}, U::Time, P::Time, 6, 6, 0, microsecondsFromReply},
    {K::PointCount, {Unit::None, 0}, U::None, P::PointCount, 0, 0, 0, toNumber},
    {K::DacValue, {Unit::None, 0}, U::None, P::SignedWhole, 0, 0, 0, toNumber},
};

struct PatternRow {
    EntryPattern pattern;
    const char* text;
};
constexpr PatternRow patternRows[] = {
    {P::Frequency, "[0-9 kmgKMG,.]*"},
    {P::SignedWhole, "[0-9-]*"},
    {P::SignedFrequency, "[0-9 kmgKMG,.-]*"},
    {P::Time, "[0-9 msMS.,]*"},
    {P::Voltage, "[0-9mM,.]*"},
    {P::Percent, "[0-9,.]*"},
    {P::Deviation, "[0-9,.]*"},
    {P::PointCount, "[0-9 ]*"},
    {P::Whole, "[0-9]*"},
};

constexpr bool areRowsInOrder()
{
    for (int i = 0; i < fieldKindCount; ++i) {
        if (static_cast<int>(fieldRows[i].kind) != i)
            return false;
    }
    for (int i = 0; i < entryPatternCount; ++i) {
        if (static_cast<int>(patternRows[i].pattern) != i)
            return false;
    }
    return true;
}
static_assert(std::size(fieldRows) == fieldKindCount &&
              std::size(patternRows) == entryPatternCount && areRowsInOrder());

const FieldRow& rowOf(FieldKind kind)
{
    return fieldRows[static_cast<int>(kind)];
}

/// A decimal text as the kind is shown, whatever decimals it came with.
QString finishedText(const QString& decimalText, const FieldRow& row)
{
    return grouped(withLeastDecimals(trimZeros(decimalText), row.leastDecimals), row.kind);
}

struct ReplyUnit {
    const char* word;
    int powerOfTen;
};

/// A number with a unit word in the unit of the table's power 0; without one of these words
/// `plainPower` applies. The power of ten is added to the number's own exponent, so that only the
/// conversion itself rounds.
template <std::size_t count, typename PlainPower>
double scaledReply(const QString& reply, const ReplyUnit (&units)[count], PlainPower plainPower)
{
    static const QRegularExpression numberAndUnit(
        QStringLiteral("^([-+]?[0-9.]+)(?:[eE]([-+]?[0-9]{1,4}))?([A-Za-z]*)"));
    const auto match = numberAndUnit.match(withoutBlanks(reply));
    const QString mantissa = match.captured(1);
    const int exponent = match.captured(2).toInt();
    const QString word = match.captured(3);
    const auto* unit = std::find_if(std::begin(units), std::end(units), [&](const ReplyUnit& u) {
        return word.compare(QLatin1String(u.word), Qt::CaseInsensitive) == 0;
    });
    const auto scaled = [&](int powerOfTen) {
        return toNumber(mantissa + QLatin1Char('e') + QString::number(exponent + powerOfTen));
    };
    return scaled(unit == std::end(units) ? plainPower(scaled(0)) : unit->powerOfTen);
}
} // namespace

QLatin1String patternText(EntryPattern pattern)
{
    return QLatin1String(patternRows[static_cast<int>(pattern)].text);
}

EntryPattern entryPattern(FieldKind kind)
{
    return rowOf(kind).pattern;
}

UnitFamily unitFamily(FieldKind kind)
{
    return rowOf(kind).units;
}

OwnUnit ownUnit(FieldKind kind)
{
    return rowOf(kind).unit;
}

QString grouped(const QString& number, FieldKind kind)
{
    const bool takesBlanks = patternText(entryPattern(kind)).contains(QLatin1Char(' '));
    return takesBlanks ? formatGrouped(number) : number;
}

bool takesFraction(FieldKind kind)
{
    return QString(patternText(entryPattern(kind))).contains(QLatin1Char('.'));
}

bool takesSign(FieldKind kind)
{
    return QString(patternText(entryPattern(kind))).endsWith(QLatin1String("-]*"));
}

bool readsAsNumber(const QString& text, FieldKind kind)
{
    return readsAsNumber(convertUnitKeys(text, unitFamily(kind)));
}

QString fieldText(double value, FieldKind kind)
{
    const FieldRow& row = rowOf(kind);
    return finishedText(fixedText(value, row.entryDecimals), row);
}

QString displayText(const QString& reply, FieldKind kind)
{
    if (reply.trimmed().isEmpty())
        return QString();
    const FieldRow& row = rowOf(kind);
    return finishedText(fixedText(row.valueOfReply(reply), row.replyDecimals), row);
}

bool replyHasNumber(const QString& reply, FieldKind kind)
{
    static const QRegularExpression zero(
        QStringLiteral("^\\s*[-+]?0*\\.?0*(?:[eE][-+]?[0-9]+)?\\s*[A-Za-z]*\\s*$"));
    static const QRegularExpression digit(QStringLiteral("[0-9]"));
    return rowOf(kind).valueOfReply(reply) != 0.0 ||
           (reply.contains(digit) && zero.match(reply).hasMatch());
}

QString clampText(const QString& text, double min, double max, FieldKind kind)
{
    if (text.trimmed().isEmpty())
        return text;
    const FieldRow& row = rowOf(kind);
    const double typed = toNumber(convertUnitKeys(text, row.units));
    const QString rounded = fixedText(typed, row.entryDecimals);
    const bool isBounded = min != 0.0 || max != 0.0;
    const double value = toNumber(rounded);
    const double clamped = isBounded ? std::max(std::min(value, max), min) : value;
    // A limit is written in full: rounding it could lead outside the range again.
    return finishedText(clamped == value ? rounded : shortestText(clamped), row);
}

double microsecondsFromReply(const QString& reply)
{
    static constexpr ReplyUnit units[] = {{"S", 6}, {"MS", 3}, {"US", 0}, {"U", 0}, {"NS", -3}};
    return scaledReply(reply, units, [](double) { return 0; });
}

double megahertzFromReply(const QString& reply)
{
    static constexpr ReplyUnit units[] = {{"HZ", -6}, {"KHZ", -3}, {"MHZ", 0}, {"GHZ", 3}};
    return scaledReply(reply, units, [](double plain) { return plain >= 100000.0 ? -6 : 0; });
}
