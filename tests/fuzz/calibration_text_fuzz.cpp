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
void run(Bytes bytes)
{
    const QByteArray reply = QByteArray::fromStdString(bytes.rest());
    const QString text = QString::fromUtf8(reply);
    const QString hertz = wholeHertz(text);
    PROMISE(hertz.isEmpty() || (isWhole(hertz) && hertz.size() <= 15));
    PROMISE(wholeHertz(hertz) == hertz);
    const QString value = wholeValue(text);
    PROMISE(value.isEmpty() || (isWhole(value) && value.size() <= 10));
    PROMISE(wholeValue(value) == value);
    for (const QString& number : wholeNumbersOfReply(QString::fromLatin1(reply)))
        PROMISE(number.isEmpty() || isWhole(number));
}
