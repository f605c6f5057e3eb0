#include "link/demo_plug_watch.h"

#include <QFile>
#include <QFileInfo>

namespace
{
/// The simulated instrument names its section so while it is in its bootloader.
const QLatin1String bootloaderMark("bootloader ");
} // namespace

DemoPlugWatch::DemoPlugWatch(const QString& filePath)
    : m_filePath(filePath.isEmpty() ? QString() : QFileInfo(filePath).absoluteFilePath())
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(QuietMs);
    const auto restartQuiet = [this] { m_quiet.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, restartQuiet);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, restartQuiet);
    connect(&m_quiet, &QTimer::timeout, this, &DemoPlugWatch::compareContent);
    watchPaths();
    m_content = readFile();
}

void DemoPlugWatch::watchPaths()
{
    if (m_filePath.isEmpty())
        return;
    // Anew each time: after a replacement the watcher may still follow the file that was there.
    if (!m_watcher.files().isEmpty())
        m_watcher.removePaths(m_watcher.files());
    if (QFileInfo::exists(m_filePath))
        m_watcher.addPath(m_filePath);
    const QString folder = QFileInfo(m_filePath).path();
    if (m_watcher.directories().isEmpty() && QFileInfo::exists(folder))
        m_watcher.addPath(folder);
}

void DemoPlugWatch::compareContent()
{
    // Watch first, read second: a change in between is then announced by the watcher.
    watchPaths();
    const QByteArray content = readFile();
    if (content == m_content)
        return;
    m_content = content;
    emit devicesChanged();
}

QByteArray DemoPlugWatch::readFile() const
{
    QFile file(m_filePath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList DemoPlugWatch::presentSerials(bool firstOnly) const
{
    QStringList serials;
    for (const QByteArray& line : readFile().split('\n')) {
        const QString text = QString::fromUtf8(line).trimmed();
        if (!text.startsWith(QLatin1Char('[')) || !text.endsWith(QLatin1Char(']')))
            continue;
        const QString serial = text.mid(1, text.size() - 2).trimmed();
        if (!serial.isEmpty() && !serial.startsWith(bootloaderMark) && !serials.contains(serial))
            serials += serial;
        if (firstOnly && !serials.isEmpty())
            break;
    }
    return serials;
}
