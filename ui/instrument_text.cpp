#include "ui/instrument_text.h"

namespace
{
constexpr int mostCharacters = 200;
const QChar ellipsis(0x2026);
/// Has no width; after the character that begins a tag or an entity it prevents both.
const QChar wordJoiner(0x2060);
} // namespace

QString neverRich(QString text)
{
    text.replace(QLatin1Char('<'), QString(QLatin1Char('<')) + wordJoiner);
    text.replace(QLatin1String("&lt;"),
                 QLatin1Char('&') + QString(wordJoiner) + QLatin1String("lt;"));
    return text;
}

QString instrumentText(const QString& text)
{
    QString line = text;
    for (QChar& character : line) {
        if (!character.isPrint())
            character = QLatin1Char(' ');
    }
    line = neverRich(line.trimmed());
    if (line.size() > mostCharacters)
        line = line.left(mostCharacters - 1) + ellipsis;
    return line;
}
