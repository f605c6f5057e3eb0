#pragma once

#include <QString>

// What more than one sends: the connection, the session, and a script that works without them.

const QString resetCommand = QStringLiteral("*RST");
const QString identityQuery = QStringLiteral("*IDN?");
const QString massStorageQuery = QStringLiteral("MEM:MSC?");
const QString massStorageOnCommand = QStringLiteral("MEM:MSC ON");
const QString massStorageOffCommand = QStringLiteral("MEM:MSC OFF");
/// What the mass-storage query answers in that mode.
const QString massStorageOn = QStringLiteral("ON");
const QString errorQuery = QStringLiteral("SYSTem:ERRor?");
/// For an answer, in milliseconds.
constexpr int answerTimeoutMs = 2000;
