#include "link/scpi_session.h"

#include "link/common_commands.h"

#include <QDateTime>
#include <QElapsedTimer>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <optional>
#include <utility>

namespace
{
/// Far larger than any correct reply; the width in the read format cuts a longer one.
constexpr std::size_t replyBytes = 65536;
constexpr char readFormat[] = "%65535T";
constexpr int mostExcessReads = 16;
constexpr int mostErrorRounds = 10000;
constexpr int longestDrainMs = 5000;
/// After an answer that took longer, the next wait is shown.
constexpr int slowAnswerMs = 300;
/// Cleared before every read; no correct reply is longer.
constexpr std::size_t honestReplyBytes = 4096;

/// Goes out without a line feed: the end of the USB message marks its end.
const QString completionQuery = QStringLiteral("*OPC?");

/// Decimals of a number that "%lf" prints.
constexpr int sentDecimals = 6;

constexpr int unlockCode = 328;
constexpr int indicatorCode = 329;

/// The text as a VISA format that prints it unchanged, with its line feed.
QByteArray asFormat(const QString& command)
{
    QByteArray text = command.toLatin1();
    if (text.contains('%'))
        text.replace("%", "%%");
    return text.append('\n');
}

bool isEmptyQueueReply(const QString& reply)
{
    const bool isSigned = reply.startsWith(QLatin1Char('+')) || reply.startsWith(QLatin1Char('-'));
    const int digit = isSigned ? 1 : 0;
    return reply.size() > digit && reply.at(digit) == QLatin1Char('0');
}

/// What an entry of the error queue reports; empty where that is nothing, or an indicator.
QString reportedText(const QString& reply)
{
    const int code = reply.leftRef(reply.indexOf(QLatin1Char(','))).trimmed().toInt();
    if (isEmptyQueueReply(reply) || code == indicatorCode || code == unlockCode)
        return {};
    return instrumentErrorText(reply);
}
} // namespace

/// Shows that an answer is being waited for. Whether it will take long is known from the one
/// before: once the call blocks, nothing can be shown any more.
class ScpiSession::Answer
{
public:
    explicit Answer(ScpiSession& session) : m_session(session)
    {
        if (session.m_lastAnswerMs >= slowAnswerMs)
            m_waiting.emplace([] { return tr("waiting for the instrument to answer"); }, true);
        m_time.start();
    }
    ~Answer() { m_session.m_lastAnswerMs = m_time.elapsed(); }
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;

private:
    ScpiSession& m_session;
    std::optional<Activity> m_waiting;
    QElapsedTimer m_time;
};

/// Adds an exchange to the log once it is over.
class ScpiSession::Recording
{
public:
    Recording(ScpiSession& session, const QString& sent) : m_session(session)
    {
        m_exchange.sent = sent;
        m_exchange.kind = session.m_log.kind();
        m_exchange.atMs = QDateTime::currentMSecsSinceEpoch();
    }
    ~Recording()
    {
        const auto took = std::chrono::steady_clock::now() - m_start;
        m_exchange.tookUs =
            static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(took).count());
        m_session.m_log.add(std::move(m_exchange));
    }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    void ended(ViStatus status, const QString& answered = {}, const QString& fault = {})
    {
        m_exchange.status = status;
        m_exchange.answered = answered;
        m_exchange.fault = fault;
    }

private:
    ScpiSession& m_session;
    Exchange m_exchange;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

QString statusText(ViStatus status)
{
    return QStringLiteral("0x%1").arg(static_cast<quint32>(status), 8, 16, QLatin1Char('0'));
}

ScpiSession::ScpiSession(VisaLibrary& visa, QObject* parent)
    : QObject(parent), m_visa(visa), m_reply(replyBytes, '\0')
{
}

void ScpiSession::openResourceManager()
{
    m_visa.viOpenDefaultRM(&m_defaultRM);
}

void ScpiSession::closeResourceManager()
{
    m_visa.viClose(m_defaultRM);
    m_defaultRM = VI_NULL;
}

bool ScpiSession::open(const QString& address)
{
    QByteArray name;
    for (const QChar character : address)
        name.append(character.unicode() < 256 ? static_cast<char>(character.unicode()) : '\0');

    m_visa.viClose(m_session);
    m_session = VI_NULL;
    m_lastStatus =
        m_visa.viOpen(m_defaultRM, name.data(), VI_EXCLUSIVE_LOCK, answerTimeoutMs, &m_session);
    if (lastFailed()) {
        m_visa.viClose(m_session);
        m_session = VI_NULL;
        return false;
    }
    m_visa.viSetAttribute(m_session, VI_ATTR_TMO_VALUE, answerTimeoutMs);
    return true;
}

void ScpiSession::close()
{
    m_connected = false;
    m_visa.viClose(m_session);
    m_session = VI_NULL;
    m_lastAnswerMs = 0;
    m_lastCommand.clear();
    m_isQueueRead = true;
}

ViStatus ScpiSession::send(const QString& command)
{
    remember(command);
    return m_visa.viPrintf(m_session, asFormat(command).data());
}

bool ScpiSession::write(const QString& command)
{
    Recording recording(*this, command);
    const ViStatus status = send(command);
    recording.ended(status);
    return status >= VI_SUCCESS;
}

bool ScpiSession::writeChecked(const QString& command)
{
    write(command);
    return checkErrors();
}

void ScpiSession::switchOff(const QString& command)
{
    if (!write(command) && m_connected)
        emit switchOffFailed();
}

void ScpiSession::switchOffChecked(const QString& command)
{
    switchOff(command);
    checkErrors();
}

QString ScpiSession::read(const QString& command)
{
    Recording recording(*this, command);
    send(command);
    const Answer answer(*this);
    char* reply = clearedReply();
    m_lastStatus = m_visa.viScanf(m_session, readFormat, reply);
    QString text = lastFailed() ? QString() : takeReply();
    recording.ended(m_lastStatus, text);
    return text;
}

QString ScpiSession::query(const QString& command)
{
    remember(command);
    const QString reply = queryMessage(command, asFormat(command));
    return lastFailed() ? QString() : reply;
}

QString ScpiSession::setAndReadBack(const char* format, double value)
{
    QByteArray message = QByteArray(format).append('\n');
    const QString command = QString::fromLatin1(format).replace(
        QLatin1String("%lf"), QString::number(value, 'f', sentDecimals));
    remember(command);
    QString text;
    {
        Recording recording(*this, command);
        const Answer answer(*this);
        char* reply = clearedReply();
        m_lastStatus = m_visa.viQueryf(m_session, message.data(), readFormat, value, reply);
        text = lastFailed() ? QString() : takeReply();
        recording.ended(m_lastStatus, text);
    }
    if (!lastFailed())
        return text;
    fetchStatusDescription();
    failConnection();
    return {};
}

void ScpiSession::waitComplete(const QString& command)
{
    write(command);
    queryMessage(completionQuery, completionQuery.toLatin1());
    if (!lastFailed())
        return;
    fetchStatusDescription();
    failConnection();
}

bool ScpiSession::checkErrors()
{
    if (!m_connected)
        return false;
    bool isClean = true;
    bool seen329 = false;
    bool seen328 = false;
    const QByteArray message = asFormat(errorQuery);
    const ExchangeLog::As polling(m_log, Exchange::Kind::Polling);
    QElapsedTimer drain;
    drain.start();
    for (int round = 1;; ++round) {
        const QString reply = queryMessage(errorQuery, message);
        const QStringRef code = reply.leftRef(reply.indexOf(QLatin1Char(','))).trimmed();
        if (code.toInt() == indicatorCode)
            emit error329Seen(reply.trimmed());
        else if (code.toInt() == unlockCode)
            emit referenceUnlockSeen();
        const bool isEmpty = isEmptyQueueReply(reply);
        const bool isEndless =
            round >= mostErrorRounds || (!isEmpty && drain.hasExpired(longestDrainMs));
        if (m_lastStatus != VI_SUCCESS || isEndless) {
            fetchStatusDescription();
            failConnection();
            return false;
        }
        if (isEmpty)
            break;
        const QString text = reportedText(reply);
        if (!text.isEmpty()) {
            isClean = false;
            reportEntry(text);
        }
        // An indicator whose code was in the queue keeps its state.
        seen329 = seen329 || reply.contains(QLatin1String("329"));
        seen328 = seen328 || reply.contains(QLatin1String("328"));
    }
    m_isQueueRead = true;
    if (!seen329)
        emit error329Gone();
    if (!seen328)
        emit referenceUnlockGone();
    return isClean;
}

void ScpiSession::reportEntry(const QString& text)
{
    if (!m_lastCommand.isEmpty())
        m_log.blame(m_lastNumber, text);
    emit errorReported({text, m_lastCommand});
}

/// A query is of interest only if nothing has been set: it is settings that get refused.
void ScpiSession::remember(const QString& command)
{
    const auto isQuery = [](const QString& text) {
        return text.leftRef(text.indexOf(QLatin1Char(' '))).endsWith(QLatin1Char('?'));
    };
    if (m_isQueueRead || isQuery(m_lastCommand) || !isQuery(command)) {
        m_lastCommand = command;
        m_lastNumber = m_log.end();
    }
    m_isQueueRead = false;
}

QString ScpiSession::queryMessage(const QString& command, const QByteArray& message)
{
    QByteArray format = message;
    Recording recording(*this, command);
    const Answer answer(*this);
    char* reply = clearedReply();
    m_lastStatus = m_visa.viQueryf(m_session, format.data(), readFormat, reply);
    QString text = takeReply();
    recording.ended(m_lastStatus, text, command == errorQuery ? reportedText(text) : QString());
    return text;
}

char* ScpiSession::clearedReply()
{
    // All of it would cost more than the call itself.
    const std::size_t used = std::strlen(m_reply.data()) + 1;
    std::memset(m_reply.data(), 0, std::min(std::max(used, honestReplyBytes), m_reply.size()));
    return m_reply.data();
}

/// The reply as 8-bit text up to the first NUL. What did not fit is read and dropped, so that it
/// is not taken for the answer to the next query.
QString ScpiSession::takeReply()
{
    m_reply.back() = '\0';
    QString text = QString::fromLatin1(m_reply.data());
    if (static_cast<std::size_t>(text.size()) < replyBytes - 1)
        return text;
    for (int reads = 0; reads < mostExcessReads; ++reads) {
        char* excess = clearedReply();
        const ViStatus status = m_visa.viScanf(m_session, readFormat, excess);
        m_reply.back() = '\0';
        if (status < VI_SUCCESS || std::strlen(excess) < replyBytes - 1)
            return text;
    }
    // A reply without end: replies can no longer be matched to queries.
    m_lastStatus = VI_ERROR_IO;
    return {};
}

/// Lets the library describe the last status; kept for tools that watch the library's traffic.
void ScpiSession::fetchStatusDescription()
{
    char description[256] = {};
    m_visa.viStatusDesc(m_session, m_lastStatus, description);
}

void ScpiSession::failConnection()
{
    if (m_connected)
        emit connectionFailed([status = m_lastStatus] { return lossText(status); });
}

QString ScpiSession::lossText(ViStatus status)
{
    switch (status) {
    case VI_SUCCESS:
        return tr("connection error: the error queue of the instrument never becomes empty");
    case VI_ERROR_TMO:
        return tr("connection error: the instrument does not answer");
    case VI_ERROR_CONN_LOST:
        return tr("connection error: the instrument was switched off or unplugged");
    default:
        return tr("connection error: VISA status %1").arg(statusText(status));
    }
}
