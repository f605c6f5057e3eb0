#include "tests/fuzz/fuzz.h"

#include "service/calibration_text.h"

#include <QRegularExpression>

namespace
{

bool isWhole(const QString& text)
{
    static const QRegularExpression whole(QRegularExpression::anchoredPattern("-?[0-9]+"));
    return whole.match(text).hasMatch();
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
