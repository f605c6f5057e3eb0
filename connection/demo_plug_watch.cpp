#include "connection/demo_plug_watch.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace
{
/// Section name of a simulated instrument that is in its bootloader.
const QLatin1String bootloaderMark("bootloader ");
} // namespace

DemoPlugWatch::DemoPlugWatch(const QString& filePath)
    : m_filePath(filePath.isEmpty() ? QString() : QFileInfo(filePath).absoluteFilePath())
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(QuietMs);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, [this] { noteChange(true); });
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] { noteChange(false); });
    connect(&m_quiet, &QTimer::timeout, this, &DemoPlugWatch::compareContent);
    watchPaths();
    m_content = readFile();
}

void DemoPlugWatch::watchPaths()
{
    if (m_filePath.isEmpty())
        return;
    // Added again each time: after a replacement the watcher may still follow the old file.
    if (!m_watcher.files().isEmpty())
        m_watcher.removePaths(m_watcher.files());
    if (QFileInfo::exists(m_filePath))
        m_watcher.addPath(m_filePath);
    const QString folder = QFileInfo(m_filePath).path();
    if (m_watcher.directories().isEmpty() && QFileInfo::exists(folder))
        m_watcher.addPath(folder);
}

/// An instrument that is out and in again before the file settles has lost its state nevertheless.
/// A file that is rewritten in place is empty for a moment: that does not count as unplugging.
void DemoPlugWatch::noteChange(bool isRewritten)
{
    m_quiet.start();
    watchPaths();
    const QByteArray content = readFile();
    if (isRewritten && content.isEmpty())
        return;
    const QStringList present = serialsIn(content);
    const QStringList before = serialsIn(m_content);
    for (const QString& serial : before) {
        if (!present.contains(serial) && !m_absent.contains(serial))
            m_absent += serial;
    }
}

void DemoPlugWatch::noteLoss()
{
    m_content = readFile();
}

void DemoPlugWatch::compareContent()
{
    // Watch first, read second: a change in between is then announced by the watcher.
    watchPaths();
    const QByteArray content = readFile();
    const bool isChanged = content != m_content;
    m_content = content;
    const QStringList present = serialsIn(content);
    const bool hasComeBack =
        std::any_of(m_absent.cbegin(), m_absent.cend(),
                    [&present](const QString& serial) { return present.contains(serial); });
    if (hasComeBack)
        emit devicesChanged();
    m_absent.clear();
    if (isChanged || hasComeBack)
        emit devicesChanged();
}

QByteArray DemoPlugWatch::readFile() const
{
    QFile file(m_filePath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList DemoPlugWatch::serialsIn(const QByteArray& content)
{
    QStringList serials;
    for (const QByteArray& line : content.split('\n')) {
        const QString text = QString::fromUtf8(line).trimmed();
        if (!text.startsWith(QLatin1Char('[')) || !text.endsWith(QLatin1Char(']')))
            continue;
        const QString serial = text.mid(1, text.size() - 2).trimmed();
        if (!serial.isEmpty() && !serial.startsWith(bootloaderMark) && !serials.contains(serial))
            serials += serial;
    }
    return serials;
}

QStringList DemoPlugWatch::presentSerials() const
{
    QStringList serials = serialsIn(readFile());
    for (const QString& serial : m_absent)
        serials.removeAll(serial);
    return serials;
}
