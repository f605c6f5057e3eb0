#include "service/calibration_text.h"

#include "numbers/number_text.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace
{
constexpr int mostFrequencyDigits = 15;

struct FrequencyUnit {
    const char* word;
    const char* letter;
    int powerOfTen;
};
constexpr FrequencyUnit frequencyUnits[] = {
    {"HZ", "", 0}, {"KHZ", "K", 3}, {"MHZ", "M", 6}, {"GHZ", "G", 9}};

const FrequencyUnit* findUnit(const QString& typed)
{
    const QString unit = typed.toUpper();
    const auto* found = std::find_if(
        std::begin(frequencyUnits), std::end(frequencyUnits), [&unit](const FrequencyUnit& row) {
            return unit == QLatin1String(row.word) || unit == QLatin1String(row.letter);
        });
    return found == std::end(frequencyUnits) ? nullptr : found;
}
} // namespace

QString wholeHertz(const QString& typed)
{
    static const QRegularExpression parts(QStringLiteral("^([0-9.]+)([A-Za-z]*)$"));
    const QRegularExpressionMatch match =
        parts.match(withoutBlanks(typed).replace(QLatin1Char(','), QLatin1Char('.')));
    const FrequencyUnit* unit = findUnit(match.captured(2));
    if (!match.hasMatch() || !unit || !isPlainDecimal(match.captured(1)))
        return QString();
    const QString hertz =
        shiftedDecimal(match.captured(1), unit->powerOfTen).section(QLatin1Char('.'), 0, 0);
    return hertz.size() <= mostFrequencyDigits ? hertz : QString();
}

QString wholeValue(const QString& typed)
{
    static const QRegularExpression wholeNumber(QStringLiteral("^[+-]?[0-9]{1,9}$"));
    const QString value = withoutBlanks(typed);
    return wholeNumber.match(value).hasMatch() ? QString::number(toWholeNumber(value)) : QString();
}

QStringList wholeNumbersOfReply(const QString& reply)
{
    static const QRegularExpression separators(QStringLiteral("\\s+"));
    static const QRegularExpression nonNumeric(QStringLiteral("[^0-9.eE+-]"));
    static const QRegularExpression number(
        QStringLiteral("[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?"));
    QStringList numbers;
    const QStringList parts = reply.split(separators, Qt::SkipEmptyParts);
    numbers.reserve(parts.size());
    for (QString part : parts) {
        const QRegularExpressionMatch match = number.match(part.remove(nonNumeric));
        numbers << (match.hasMatch() ? fixedText(toNumber(match.captured()), 0) : QString());
    }
    return numbers;
}
