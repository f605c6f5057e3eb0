#include "log/python_script.h"

#include "link/common_commands.h"
#include "link/scpi_session.h"

#include <QDateTime>
#include <QLocale>
#include <QSet>
#include <QStringList>

namespace
{
constexpr int leastPauseMs = 50;
constexpr double msPerS = 1000.0;

const QString indent = QStringLiteral("    ");

struct Word {
    const char* header; ///< what a part of an SCPI header begins with, in capitals
    const char* name;
};

/// What the answers are called in the script; another part is called by its own letters.
constexpr Word words[] = {
    {"FREQ", "frequency"}, {"POW", "power"},        {"OUTP", "output"},    {"PER", "period"},
    {"WIDT", "width"},     {"PWID", "width"},       {"DEPT", "depth"},     {"DEV", "deviation"},
    {"DUTY", "duty"},      {"DCYC", "duty"},        {"VOLT", "voltage"},   {"AMPL", "amplitude"},
    {"PHAS", "phase"},     {"DWEL", "dwell"},       {"POIN", "points"},    {"STAR", "start"},
    {"STOP", "stop"},      {"TEMP", "temperature"}, {"ROSC", "reference"}, {"CURR", "current"},
    {"OPC", "complete"},   {"IDN", "identity"},     {"ERR", "error"},
};

/// Names of the script's own, and of the language.
const QSet<QString> taken = {
    QStringLiteral("instrument"), QStringLiteral("resource"),  QStringLiteral("library"),
    QStringLiteral("reset"),      QStringLiteral("hand_back"), QStringLiteral("manager"),
    QStringLiteral("main"),       QStringLiteral("check"),     QStringLiteral("connect"),
    QStringLiteral("argparse"),   QStringLiteral("pyvisa"),    QStringLiteral("time"),
    QStringLiteral("and"),        QStringLiteral("as"),        QStringLiteral("assert"),
    QStringLiteral("async"),      QStringLiteral("await"),     QStringLiteral("break"),
    QStringLiteral("class"),      QStringLiteral("continue"),  QStringLiteral("def"),
    QStringLiteral("del"),        QStringLiteral("elif"),      QStringLiteral("else"),
    QStringLiteral("except"),     QStringLiteral("finally"),   QStringLiteral("for"),
    QStringLiteral("from"),       QStringLiteral("global"),    QStringLiteral("if"),
    QStringLiteral("import"),     QStringLiteral("in"),        QStringLiteral("is"),
    QStringLiteral("lambda"),     QStringLiteral("nonlocal"),  QStringLiteral("not"),
    QStringLiteral("or"),         QStringLiteral("pass"),      QStringLiteral("raise"),
    QStringLiteral("return"),     QStringLiteral("try"),       QStringLiteral("while"),
    QStringLiteral("with"),       QStringLiteral("yield"),
};

QString escapedCharacter(uint character)
{
    constexpr uint firstPlain = 0x20;
    constexpr uint lastPlain = 0x7e;
    constexpr uint lastByte = 0xff;
    constexpr uint lastShort = 0xffff;
    const auto hex = [character](const char* prefix, int digits) {
        return QLatin1String(prefix) +
               QString::number(character, 16).rightJustified(digits, QLatin1Char('0'));
    };
    if (character == '\n')
        return QStringLiteral("\\n");
    if (character == '"' || character == '\\')
        return QLatin1Char('\\') + QString(QChar(character));
    if (character >= firstPlain && character <= lastPlain)
        return QString(QChar(character));
    if (character <= lastByte)
        return hex("\\x", 2);
    return character <= lastShort ? hex("\\u", 4) : hex("\\U", 8);
}

/// Without quotes around it.
QString escaped(const QString& text)
{
    QString literal;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters)
        literal += escapedCharacter(character);
    return literal;
}

/// To be filled into the script's text: nothing in it is a place to fill in.
QString filling(const QString& text)
{
    return escaped(text).replace(QLatin1Char('@'), QLatin1String("\\x40"));
}

QString literal(const QString& text)
{
    return QLatin1Char('"') + escaped(text) + QLatin1Char('"');
}

bool isAsked(const Exchange& exchange)
{
    return exchange.sent.contains(QLatin1Char('?'));
}

QString wordOf(const QString& part)
{
    for (const Word& word : words) {
        if (part.startsWith(QLatin1String(word.header)))
            return QLatin1String(word.name);
    }
    return part.toLower();
}

/// "frequency" for "FREQ 2450000000.000000 Hz;FREQ?".
QString answerName(const QString& command)
{
    const QString query = command.left(command.lastIndexOf(QLatin1Char('?')));
    QString header = query.mid(query.lastIndexOf(QLatin1Char(';')) + 1).toUpper();
    header.remove(QLatin1Char('*'));
    QStringList names;
    for (const QString& part : header.split(QLatin1Char(':'))) {
        QString letters;
        for (const QChar each : part) {
            if ((each >= QLatin1Char('A') && each <= QLatin1Char('Z')) ||
                (each >= QLatin1Char('0') && each <= QLatin1Char('9')))
                letters += each;
        }
        if (!letters.isEmpty())
            names << wordOf(letters);
    }
    const QString name = names.join(QLatin1Char('_'));
    if (name.isEmpty() || name.at(0).isDigit())
        return QStringLiteral("answer");
    return taken.contains(name) ? name + QLatin1Char('_') : name;
}

QString commandLine(const Exchange& exchange)
{
    const QString text = literal(exchange.sent);
    if (!isAsked(exchange))
        return QStringLiteral("instrument.write(%1)").arg(text);
    if (exchange.status < VI_SUCCESS)
        return QStringLiteral("instrument.write(%1)  # was not answered").arg(text);
    return answerName(exchange.sent) + QStringLiteral(" = instrument.query(") + text +
           QLatin1Char(')');
}

bool isCommand(const Exchange& exchange)
{
    return exchange.kind == Exchange::Kind::Command &&
           (exchange.status >= VI_SUCCESS || isAsked(exchange));
}

QStringList lines(const std::vector<Exchange>& exchanges)
{
    QStringList lines;
    int pausedMs = 0;
    for (const Exchange& exchange : exchanges) {
        pausedMs += exchange.pausedMs;
        if (!isCommand(exchange))
            continue;
        if (pausedMs > leastPauseMs && !lines.isEmpty())
            lines << QStringLiteral("time.sleep(%1)").arg(pausedMs / msPerS);
        pausedMs = 0;
        lines << commandLine(exchange);
    }
    return lines;
}

/// The placeholders between @ are filled in.
constexpr char scriptText[] = R"(#!/usr/bin/env python3
"""@title@

Sends again what the KLV panel sent on @date@.
"""
import argparse
import time

import pyvisa


def connect(instrument):
    """Resets and identifies the instrument, as the panel does when it connects."""
    if instrument.query("@massStorage@").strip() == "@on@":
        instrument.write("@massStorageOff@")
        raise SystemExit("The instrument leaves its mass-storage mode; start again in a moment.")
    instrument.write("@reset@")
    print(instrument.query("@identity@").strip())


def check(instrument):
    """Reads the error queue until it is empty, and raises what was in it."""
    errors = []
    for _ in range(1000):
        error = instrument.query("@errors@").strip()
        code = error.split(",")[0].lstrip("+-")
        if code.startswith("0"):
            break
        if code not in ("328", "329"):  # indicators of the panel
            errors.append(error)
    if errors:
        raise RuntimeError("; ".join(errors))


def run(instrument):
    """The commands, in their order."""
@lines@


def main(resource, library, reset=False, hand_back=False):
    manager = pyvisa.ResourceManager(library)
    instrument = manager.open_resource(
        resource,
        timeout=@timeout@,
        encoding="latin-1",
        write_termination="\n",
        read_termination="\n",
    )
    try:
        if reset:
            connect(instrument)
        run(instrument)
        check(instrument)
        if hand_back:
            instrument.write("@reset@")
            instrument.write("@massStorageOn@")
    finally:
        instrument.close()
        manager.close()


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description="Sends the logged commands again.")
    parser.add_argument("resource", nargs="?", default="@address@", help="VISA address")
    parser.add_argument("--visa", default="", metavar="LIBRARY", help="VISA library, by its path")
    parser.add_argument("--reset", action="store_true", help="begin as the panel connects")
    parser.add_argument("--hand-back", action="store_true", help="end as the panel disconnects")
    arguments = parser.parse_args()
    main(arguments.resource, arguments.visa, arguments.reset, arguments.hand_back)
)";
} // namespace

QString pythonLines(const std::vector<Exchange>& exchanges)
{
    return lines(exchanges).join(QLatin1Char('\n'));
}

QByteArray pythonScript(const std::vector<Exchange>& exchanges, const LoggedInstrument& instrument)
{
    QStringList body = lines(exchanges);
    if (body.isEmpty())
        body << QStringLiteral("pass");
    const QString title =
        instrument.name + (instrument.firmware.isEmpty()
                               ? QString()
                               : QStringLiteral(", firmware ") + instrument.firmware);
    const struct {
        const char* place;
        QString text;
    } fillings[] = {
        {"@title@", filling(title.isEmpty() ? QStringLiteral("KLV signal generator") : title)},
        {"@date@", QDate::currentDate().toString(Qt::ISODate)},
        {"@massStorage@", massStorageQuery},
        {"@on@", massStorageOn},
        {"@massStorageOff@", massStorageOffCommand},
        {"@massStorageOn@", massStorageOnCommand},
        {"@reset@", resetCommand},
        {"@identity@", identityQuery},
        {"@errors@", errorQuery},
        {"@timeout@", QString::number(answerTimeoutMs)},
        {"@address@", filling(instrument.address)},
        // Last: what stands in the lines is filled in no more.
        {"@lines@", indent + body.join(QLatin1Char('\n') + indent)},
    };
    QString script = QLatin1String(scriptText);
    for (const auto& each : fillings)
        script.replace(QLatin1String(each.place), each.text);
    return script.toLatin1();
}
