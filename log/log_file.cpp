#include "log/log_file.h"

#include "link/notices.h"
#include "log/log_text.h"
#include "ui/files/whole_file.h"

LogFile::LogFile(const QString& path, const ExchangeLog& log, Notices& notices, QObject* parent)
    : QObject(parent), m_file(path), m_notices(notices)
{
    const FileOutcome opened = openToAppend(m_file);
    if (opened.fault != FileFault::None) {
        notices.say([opened] { return tr("No log is written: %1").arg(opened.detail()); });
        return;
    }
    connect(&log, &ExchangeLog::added, this, &LogFile::write);
}

void LogFile::write(const Exchange& exchange)
{
    const QByteArray line = logLine(exchange).toUtf8() + '\n';
    // What did not go in at once is tried again: only then is the reason known.
    for (qint64 done = 0;;) {
        const qint64 written = m_file.write(line.constData() + done, line.size() - done);
        done += written;
        if (done == line.size())
            return;
        if (written <= 0)
            break;
    }
    const QString path = m_file.fileName();
    const QString reason = m_file.errorString();
    m_notices.say(
        [path, reason] { return tr("The log is no longer written to %1: %2").arg(path, reason); });
    disconnect(nullptr, nullptr, this, nullptr);
    m_file.close();
}
