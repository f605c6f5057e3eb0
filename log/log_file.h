#pragma once

#include "link/exchange_log.h"

#include <QFile>

class Notices;

/// Writes each line of the log to a file as it happens, behind what the file holds already. After
/// the first failure it writes no more, and says so once.
class LogFile : public QObject
{
    Q_OBJECT

public:
    LogFile(const QString& path, const ExchangeLog& log, Notices& notices,
            QObject* parent = nullptr);

private:
    void write(const Exchange& exchange);

    QFile m_file;
    Notices& m_notices;
};
