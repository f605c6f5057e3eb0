#include "link/instrument_error.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{
constexpr int longestWords = 200;
constexpr int longestCommand = 80;

QString shortened(const QString& text, int length)
{
    return text.size() <= length ? text : text.left(length - 1) + QChar(0x2026);
}
} // namespace

QString instrumentErrorText(const QString& reply)
{
    const int comma = reply.indexOf(QLatin1Char(','));
    QString message = reply.mid(comma + 1).trimmed();
    const QChar quote = QLatin1Char('"');
    if (message.size() > 1 && message.startsWith(quote) && message.endsWith(quote))
        message = message.mid(1, message.size() - 2).replace(QLatin1String("\"\""), QString(quote));
    QString text =
        comma < 0 ? message : reply.left(comma).trimmed() + QLatin1String(", ") + message;
    std::replace_if(
        text.begin(), text.end(), [](QChar each) { return !each.isPrint(); }, QLatin1Char(' '));
    return text.simplified();
}

QString errorWords(const InstrumentError& error)
{
    if (error.command.isEmpty())
        return shortened(error.text, longestWords);
    const QString command = shortened(error.command.simplified(), longestCommand);
    const auto words = [&command](const QString& text) {
        return QCoreApplication::translate("InstrumentError", "%1 after %2").arg(text, command);
    };
    return words(shortened(error.text, longestWords - words(QString()).size()));
}
