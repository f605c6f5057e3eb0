#pragma once

#include "visa/visa.h"

#include <QObject>
#include <QString>

#include <deque>

/// One line of the log: what was sent and what was answered, or an event between.
struct Exchange {
    enum class Kind : quint8 {
        Command,
        Polling,        ///< the error queue, the temperature: nobody has asked for it
        Identification, ///< what a connection begins with, up to the limits
        HandBack,       ///< what it ends with
        Connected,      ///< `sent` is the instrument's name
        Disconnected,
        Reset,
        ProfileStarted,
        ProfileEnded,
    };

    QString sent;
    QString answered; ///< as it came, with its line end
    QString fault;    ///< what the instrument's error queue said of it
    qint64 atMs = 0;  ///< when it was sent: milliseconds since 1970, UTC
    ViStatus status = VI_SUCCESS;
    int tookUs = 0;
    int pausedMs = 0; ///< for how long the program paused before
    Kind kind = Kind::Command;

    bool isEvent() const { return kind >= Kind::Connected; }
    bool hasFailed() const { return status < VI_SUCCESS || !fault.isEmpty(); }
};

/// The instrument as it was connected.
struct LoggedInstrument {
    QString name;
    QString firmware;
    QString address;
};

/// The last exchanges with the instrument: at most 100 000 and 20 MB. Each has a number, counted
/// from the first ever recorded. Belongs to the GUI thread.
class ExchangeLog : public QObject
{
    Q_OBJECT

public:
    static constexpr std::size_t mostExchanges = 100000;
    static constexpr qint64 mostBytes = 20'000'000;

    using Number = quint64;

    /// What is sent in its lifetime is of this kind. No pause in between: others send in it.
    class As
    {
    public:
        As(ExchangeLog& log, Exchange::Kind kind) : m_log(log), m_before(log.m_kind)
        {
            log.m_kind = kind;
        }
        ~As() { m_log.m_kind = m_before; }
        As(const As&) = delete;
        As& operator=(const As&) = delete;

    private:
        ExchangeLog& m_log;
        Exchange::Kind m_before;
    };

    using QObject::QObject;

    Exchange::Kind kind() const { return m_kind; }

    /// Adds what has just ended; fills in the pause before it.
    void add(Exchange exchange);
    /// Adds an event of now.
    void addEvent(Exchange::Kind event, const QString& name = {});
    void addConnected(const LoggedInstrument& instrument);
    /// The error queue said this of an exchange; of several entries the first is kept. Ignored
    /// where it is no longer recorded.
    void blame(Number number, const QString& fault);
    void clear();

    /// The numbers recorded: from first(), without end().
    Number first() const { return m_first; }
    Number end() const { return m_first + m_exchanges.size(); }
    const Exchange& at(Number number) const { return m_exchanges[number - m_first]; }
    /// Whether older exchanges have been dropped since the last clear().
    bool hasDropped() const { return m_hasDropped; }

    /// The last one that was connected; empty before.
    const LoggedInstrument& instrument() const { return m_instrument; }

signals:
    void added(const Exchange& exchange);
    void blamed(ExchangeLog::Number number);
    void cleared();

private:
    std::deque<Exchange> m_exchanges;
    Number m_first = 0;
    qint64 m_bytes = 0;
    int m_pausedBefore = 0;
    bool m_hasDropped = false;
    Exchange::Kind m_kind = Exchange::Kind::Command;
    LoggedInstrument m_instrument;
};
