#pragma once

#include "link/activity.h"
#include "link/exchange_log.h"
#include "link/instrument_error.h"
#include "link/visa_library.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <vector>

/// As VISA's documents write it: "0xbfff0015".
QString statusText(ViStatus status);

/// The one open connection to the instrument and the operations that transfer its SCPI text.
///
/// Owns the resource manager and instrument sessions, the line feed behind every command, the
/// escaping of "%" and the last status. Commands and formats are given without their line feed.
/// Every call blocks for at most the 2000 ms time-out and belongs to the GUI thread. It never
/// closes itself on a failure: it emits connectionFailed(), and the connection decides.
class ScpiSession : public QObject
{
    Q_OBJECT

public:
    explicit ScpiSession(VisaLibrary& visa, QObject* parent = nullptr);

    /// Opens the default resource manager; the result is not checked: without one, every later call
    /// fails with a VISA status of its own.
    void openResourceManager();

    void closeResourceManager();

    /// The default resource manager, for the device search.
    const ViSession& defaultRM() const { return m_defaultRM; }

    /// Opens `address` with an exclusive lock and 2000 ms time-outs, closing what was open.
    bool open(const QString& address);

    /// Closes the instrument session and clears the connected flag.
    void close();

    /// Everything that is sent through this session.
    ExchangeLog& log() { return m_log; }

    bool isConnected() const { return m_connected; }
    void setConnected() { m_connected = true; }

    /// Status of the last open, read or query; writes leave it as it is.
    ViStatus lastStatus() const { return m_lastStatus; }
    bool lastFailed() const { return m_lastStatus < VI_SUCCESS; }

    /// Sends `command`; a failure shows in the next read or query. False: the library did not take
    /// it.
    bool write(const QString& command);

    /// Sends `command` and drains the instrument's error queue; the result is that of
    /// checkErrors().
    bool writeChecked(const QString& command);

    /// Sends a command that switches something off. If the library does not take it, the connection
    /// ends: what is on would be shown as off.
    void switchOff(const QString& command);

    /// The same, and drains the instrument's error queue.
    void switchOffChecked(const QString& command);

    /// Writes `command`, then reads the reply: two VISA calls. Empty on a failure.
    QString read(const QString& command);

    /// Writes `command` and reads the reply in one VISA call. Empty on a failure.
    QString query(const QString& command);

    /// Sends `format` with its "%lf" replaced by `value` and returns the instrument's reply. A
    /// failure gives an empty text and, while connected, ends the connection.
    QString setAndReadBack(const char* format, double value);

    /// Sends `command` and waits until the instrument has executed it. Without an answer within the
    /// time-out the connection is lost.
    void waitComplete(const QString& command);

    /// Reads the instrument's error queue until it is empty. Codes 328 and 329 show as indicators,
    /// all others are reported; a failing status ends the connection. Does nothing while
    /// disconnected. True when the instrument is there and no other code than the two was in the
    /// queue.
    bool checkErrors();

signals:
    /// The session can no longer be used. `reason` is for the status line; an error that the
    /// instrument reported is not repeated there.
    void connectionFailed(const StatusWords& reason);
    /// A command that switches something off was not sent, and the session can no longer be used.
    void switchOffFailed();
    /// Error 329 is in the queue; `message` is the instrument's own text.
    void error329Seen(const QString& message);
    void error329Gone();
    /// Any other error was in the queue. Emitted while the queue is being read: send nothing here.
    void errorReported(const InstrumentError& error);
    /// Error 328: the external reference is not locked.
    void referenceUnlockSeen();
    void referenceUnlockGone();

private:
    class Answer;
    class Recording;

    ViStatus send(const QString& command);
    char* clearedReply();
    QString takeReply();
    QString queryMessage(const QString& command, const QByteArray& message);
    void reportEntry(const QString& text);
    void remember(const QString& command);
    void fetchStatusDescription();
    void failConnection();
    static QString lossText(ViStatus status);

    VisaLibrary& m_visa;
    ViSession m_defaultRM = VI_NULL;
    ViSession m_session = VI_NULL;
    ViStatus m_lastStatus = VI_SUCCESS;
    bool m_connected = false;
    qint64 m_lastAnswerMs = 0;
    std::vector<char> m_reply;
    ExchangeLog m_log;
    ExchangeLog::Number m_lastNumber = 0; ///< of the last command, in the log
    QString m_lastCommand; ///< of what was sent since the error queue was read, if anything was
    bool m_isQueueRead = true;
};
