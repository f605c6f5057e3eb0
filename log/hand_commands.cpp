#include "log/hand_commands.h"

#include "link/scpi_session.h"
#include "log/command_entry.h"

#include <QRegularExpression>

#include <algorithm>

namespace
{
/// OUTPut or *RST, in any form and case, in any of the commands of a message.
bool touchesOutput(const QString& command)
{
    static const QRegularExpression pattern(QStringLiteral("(^|;)[\\s:]*(OUTP|\\*RST)"),
                                            QRegularExpression::CaseInsensitiveOption);
    return pattern.match(command).hasMatch();
}

/// Whether each of the commands of a message asks for something.
bool onlyAsks(const QString& message)
{
    const QStringList commands = message.split(QLatin1Char(';'));
    return std::all_of(commands.begin(), commands.end(),
                       [](const QString& command) { return command.contains(QLatin1Char('?')); });
}
} // namespace

HandCommands::HandCommands(ScpiSession& session, QObject* parent)
    : QObject(parent), m_session(session)
{
    connect(&m_turn, &Turn::due, this, &HandCommands::sendNext);
}

bool HandCommands::send(const QString& text)
{
    static const QRegularExpression lineEnd(QStringLiteral("[\\n\\r\\x{2028}\\x{2029}]+"));
    const QStringList commands = text.split(lineEnd, Qt::SkipEmptyParts);
    if (!m_session.isConnected()) {
        emit refused([] { return tr("Not connected: nothing was sent"); });
        return false;
    }
    for (const QString& command : commands) {
        if (!isSendable(command))
            return false;
    }
    m_pending << commands;
    sendNext();
    return true;
}

bool HandCommands::isSendable(const QString& command)
{
    if (command.size() > CommandEntry::mostCharacters) {
        emit refused([] { return tr("Not sent: the command is too long"); });
        return false;
    }
    const QVector<uint> characters = command.toUcs4();
    const auto wrong = std::find_if(characters.begin(), characters.end(), [](uint each) {
        return (each < ' ' && each != '\t') || each >= 0x7f;
    });
    if (wrong == characters.end())
        return true;
    emit refused([character = *wrong] {
        const QString code =
            QString::number(character, 16).toUpper().rightJustified(4, QLatin1Char('0'));
        return character <= 0x7f ? tr("Not sent: it holds a control character (U+%1)").arg(code)
                                 : tr("Not sent: \"%1\" (U+%2) is not an ASCII character")
                                       .arg(QString::fromUcs4(&character, 1), code);
    });
    return false;
}

void HandCommands::sendNext()
{
    while (!m_pending.isEmpty()) {
        if (!m_session.isConnected()) {
            m_pending.clear();
            emit refused([] { return tr("Disconnected: the command was not sent"); });
            return;
        }
        if (!Turn::isNow()) {
            emit waiting();
            m_turn.await();
            return;
        }
        const QString command = m_pending.takeFirst();
        const ExchangeLog& log = m_session.log();
        const ExchangeLog::Number number = log.end();
        if (command.contains(QLatin1Char('?')))
            m_session.query(command);
        else
            m_session.write(command);
        m_session.checkErrors();
        if (number >= log.first())
            emit sent(log.at(number));
        // A connection that was lost by it is not the panel's any more.
        if (m_session.isConnected() && !onlyAsks(command))
            emit panelOutdated(touchesOutput(command));
    }
}
