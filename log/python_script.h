#pragma once

#include "link/exchange_log.h"

#include <vector>

// Exchanges as Python for PyVISA. Polling, identification, the hand-back and commands that the VISA
// library did not take are left out. Every text is a literal of ASCII characters, so that nothing
// in it can become code.

/// One line a command, and one for each pause of the program of more than 50 ms.
QString pythonLines(const std::vector<Exchange>& exchanges);

/// A script that sends them again; `instrument` is what it was connected to.
QByteArray pythonScript(const std::vector<Exchange>& exchanges, const LoggedInstrument& instrument);
