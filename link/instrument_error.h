#pragma once

#include <QString>

/// An entry of the instrument's error queue, and the command before it.
struct InstrumentError {
    /// Code and message as plain text of one line: "-222, Data out of range".
    QString text;
    /// The last setting sent, or the last query if nothing had been set. Empty when nothing had
    /// been sent.
    QString command;
};

/// The reply to a query of the error queue as plain text.
QString instrumentErrorText(const QString& reply);

/// "-222, Data out of range after FREQ:START 10000000001", cut to 200 characters.
QString errorWords(const InstrumentError& error);
