#include "log/log_text.h"

#include "link/scpi_session.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>

namespace
{
constexpr double usPerMs = 1000.0;

struct Words {
    Q_DECLARE_TR_FUNCTIONS(ScpiLog)
};

QString escaped(QChar character)
{
    switch (character.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\x%1").arg(character.unicode(), 2, 16, QLatin1Char('0'));
    }
}

QStringList columns(const Exchange& exchange)
{
    return {timeText(exchange), sentText(exchange), inOneLine(exchange.answered),
            durationText(exchange), statusText(exchange)};
}

/// A spreadsheet would compute what begins like a formula.
QString asText(const QString& text)
{
    static const QString formulas = QStringLiteral("=@+-");
    bool isNumber = false;
    text.toDouble(&isNumber);
    const bool isFormula = !text.isEmpty() && formulas.contains(text.at(0)) && !isNumber;
    return isFormula ? QLatin1Char('\'') + text : text;
}

QString quoted(const QString& text)
{
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QLatin1String("\"\"")) +
           QLatin1Char('"');
}

QString valuesLine(const QStringList& texts)
{
    QStringList cells;
    for (const QString& text : texts)
        cells << quoted(asText(text));
    return cells.join(QLatin1Char(',')) + QLatin1String("\r\n");
}
} // namespace

QStringList columnTitles()
{
    return {Words::tr("Time"), Words::tr("Sent"), Words::tr("Answered"), Words::tr("ms"),
            Words::tr("Status")};
}

QString inOneLine(const QString& text)
{
    int end = text.size();
    while (end > 0 &&
           (text.at(end - 1) == QLatin1Char('\n') || text.at(end - 1) == QLatin1Char('\r')))
        --end;
    QString line;
    line.reserve(end);
    for (const QChar character : text.leftRef(end)) {
        if (character.category() == QChar::Other_Control)
            line += escaped(character);
        else
            line += character;
    }
    return line;
}

QString timeText(const Exchange& exchange)
{
    return QDateTime::fromMSecsSinceEpoch(exchange.atMs).toString(QStringLiteral("HH:mm:ss.zzz"));
}

QString sentText(const Exchange& exchange)
{
    QString text = inOneLine(exchange.sent);
    switch (exchange.kind) {
    case Exchange::Kind::Connected:
        return Words::tr("Connected: %1").arg(text);
    case Exchange::Kind::Disconnected:
        return Words::tr("Disconnected");
    case Exchange::Kind::Reset:
        return Words::tr("Reset");
    case Exchange::Kind::ProfileStarted:
        return Words::tr("Profile started");
    case Exchange::Kind::ProfileEnded:
        return Words::tr("Profile ended");
    default:
        return text;
    }
}

QString durationText(const Exchange& exchange)
{
    return exchange.isEvent() ? QString() : QString::number(exchange.tookUs / usPerMs, 'f', 2);
}

QString statusText(const Exchange& exchange)
{
    if (!exchange.fault.isEmpty())
        return exchange.fault;
    if (exchange.status == VI_ERROR_TMO)
        return Words::tr("no answer");
    if (exchange.status < VI_SUCCESS)
        return Words::tr("failed: %1").arg(statusText(exchange.status));
    return exchange.isEvent() ? QString() : Words::tr("ok");
}

QString outcomeText(const Exchange& exchange)
{
    constexpr int most = 80;
    const auto cut = [](const QString& text) {
        return text.size() <= most ? text : text.left(most) + QChar(0x2026);
    };
    QStringList outcome = {cut(sentText(exchange)) + QLatin1Char(':')};
    const QString answer = inOneLine(exchange.answered);
    if (!answer.isEmpty())
        outcome << cut(answer);
    outcome << QLatin1Char('(') + cut(statusText(exchange)) + QLatin1Char(')');
    return outcome.join(QLatin1Char(' '));
}

QString logLine(const Exchange& exchange)
{
    return columns(exchange).join(QLatin1Char('\t'));
}

QByteArray logLines(const std::vector<Exchange>& exchanges)
{
    QByteArray text;
    for (const Exchange& exchange : exchanges)
        text += logLine(exchange).toUtf8() + '\n';
    return text;
}

QByteArray logValues(const std::vector<Exchange>& exchanges)
{
    QString text = valuesLine(columnTitles());
    for (const Exchange& exchange : exchanges)
        text += valuesLine(columns(exchange));
    // Without the mark, spreadsheets take UTF-8 for the code page of the system.
    const bool isPlain =
        std::all_of(text.cbegin(), text.cend(), [](QChar each) { return each.unicode() < 0x80; });
    return (isPlain ? QByteArray() : QByteArray("\xEF\xBB\xBF")) + text.toUtf8();
}
