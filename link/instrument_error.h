#pragma once

#include <QString>

/// An entry of the instrument's error queue, and what it followed.
struct InstrumentError {
    /// Code and message as plain text of one line: "-222, Data out of range".
    QString text;
    /// What had been sent since the queue was read before: one command, or the first and the last
    /// of several with an ellipsis between. Empty when nothing had.
    QString command;
};

/// The reply to a query of the error queue as plain text.
QString instrumentErrorText(const QString& reply);

/// "-222, Data out of range after FREQ:START 10000000001", cut to 200 characters.
QString errorWords(const InstrumentError& error);
