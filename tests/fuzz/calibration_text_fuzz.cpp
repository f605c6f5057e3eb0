#include "tests/fuzz/fuzz.h"

#include "service/calibration_text.h"

#include <algorithm>

namespace
{

bool isWhole(const QString& text)
{
    const QString digits = text.startsWith(QLatin1Char('-')) ? text.mid(1) : text;
    return !digits.isEmpty() && std::all_of(digits.begin(), digits.end(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
}

} // namespace

/// The calibration table as read from an instrument and as typed by a user: an accepted text is a
/// whole number, and accepted again it is the same.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const QString text = QString::fromStdString(bytes);
    const QString hertz = wholeHertz(text);
    PROMISE(hertz.isEmpty() || (isWhole(hertz) && hertz.size() <= 15));
    PROMISE(wholeHertz(hertz) == hertz);
    const QString value = wholeValue(text);
    PROMISE(value.isEmpty() || (isWhole(value) && value.size() <= 10));
    PROMISE(wholeValue(value) == value);
    const QStringList numbers = wholeNumbersOfReply(QString::fromLatin1(bytes.data(), int(size)));
    for (const QString& number : numbers)
        PROMISE(number.isEmpty() || isWhole(number));
    return 0;
}
