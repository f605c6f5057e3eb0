#include "link/exchange_log.h"

#include "link/pause.h"

#include <QDateTime>

#include <utility>

namespace
{
/// About what a text costs beside its characters.
constexpr qint64 textOverhead = 32;

qint64 bytesOf(const Exchange& exchange)
{
    qint64 bytes = static_cast<qint64>(sizeof(Exchange));
    for (const QString* text : {&exchange.sent, &exchange.answered, &exchange.fault})
        bytes += text->isEmpty() ? 0 : textOverhead + qint64{2} * text->size();
    return bytes;
}
} // namespace

void ExchangeLog::add(Exchange exchange)
{
    exchange.pausedMs = pauses().totalMs - std::exchange(m_pausedBefore, pauses().totalMs);
    m_bytes += bytesOf(exchange);
    m_exchanges.push_back(std::move(exchange));
    while (m_exchanges.size() > mostExchanges || m_bytes > mostBytes) {
        m_bytes -= bytesOf(m_exchanges.front());
        m_exchanges.pop_front();
        ++m_first;
        m_hasDropped = true;
    }
    emit added(m_exchanges.back());
}

void ExchangeLog::addEvent(Exchange::Kind event, const QString& name)
{
    Exchange exchange;
    exchange.kind = event;
    exchange.sent = name;
    exchange.atMs = QDateTime::currentMSecsSinceEpoch();
    add(std::move(exchange));
}

void ExchangeLog::addConnected(const LoggedInstrument& instrument)
{
    m_instrument = instrument;
    addEvent(Exchange::Kind::Connected, instrument.name);
}

void ExchangeLog::blame(Number number, const QString& fault)
{
    if (number < m_first || number >= end())
        return;
    Exchange& exchange = m_exchanges[number - m_first];
    if (!exchange.fault.isEmpty())
        return;
    m_bytes -= bytesOf(exchange);
    exchange.fault = fault;
    m_bytes += bytesOf(exchange);
    emit blamed(number);
}

void ExchangeLog::clear()
{
    m_first = end();
    m_exchanges.clear();
    m_bytes = 0;
    m_hasDropped = false;
    emit cleared();
}
