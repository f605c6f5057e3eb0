#include "ui/files/whole_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace
{
constexpr qint64 chunk = qint64{64} * 1024;

/// Counts one more step; false when it has been cancelled.
bool isWanted(FileProgress* progress, qint64 done)
{
    if (!progress)
        return true;
    progress->done = done;
    return !progress->isCancelled;
}
} // namespace

QString FileOutcome::detail() const
{
    switch (fault) {
    case FileFault::Missing:
        return QCoreApplication::translate("WholeFile", "there is no such file");
    case FileFault::NotRegular:
        return QCoreApplication::translate("WholeFile", "it is a folder, a pipe or a device");
    case FileFault::TooLarge:
        return QCoreApplication::translate("WholeFile", "it is too large");
    default:
        return systemText;
    }
}

FileOutcome openToRead(QFile& file, FileProgress* progress)
{
    const QFileInfo info(file.fileName());
    if (!info.exists())
        return {FileFault::Missing};
    if (!info.isFile())
        return {FileFault::NotRegular};
    if (!file.open(QIODevice::ReadOnly))
        return {FileFault::NotOpened, file.errorString()};
    if (progress)
        progress->total = file.size();
    return {};
}

FileOutcome openToAppend(QFile& file)
{
    const QFileInfo info(file.fileName());
    if (info.exists() && !info.isFile())
        return {FileFault::NotRegular};
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return {FileFault::NotOpened, file.errorString()};
    return {};
}

FileBytes readWholeFile(const QString& path, qint64 mostBytes, FileProgress* progress)
{
    QFile file(path);
    const FileOutcome opened = openToRead(file, progress);
    if (opened.fault != FileFault::None)
        return {opened, {}};
    if (file.size() > mostBytes)
        return {{FileFault::TooLarge}, {}};
    QByteArray bytes;
    for (;;) {
        const QByteArray read = file.read(chunk);
        if (read.isEmpty())
            break;
        bytes += read;
        if (bytes.size() > mostBytes)
            return {{FileFault::TooLarge}, {}};
        if (!isWanted(progress, bytes.size()))
            return {{FileFault::Cancelled}, {}};
    }
    if (file.error() != QFileDevice::NoError)
        return {{FileFault::Failed, file.errorString()}, {}};
    return {{}, bytes};
}

FileOutcome writeWholeFile(const QString& path, const QByteArray& bytes, FileProgress* progress)
{
    const QFileInfo target(path);
    if (target.exists() && !target.isFile())
        return {FileFault::NotRegular};
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {FileFault::NotOpened, file.errorString()};
    if (progress)
        progress->total = bytes.size();
    for (qint64 done = 0; done < bytes.size(); done += chunk) {
        const qint64 length = std::min(chunk, bytes.size() - done);
        if (file.write(bytes.constData() + done, length) != length)
            return {FileFault::Failed, file.errorString()};
        if (!isWanted(progress, done + length))
            return {FileFault::Cancelled};
    }
    // Closing within commit() would not report that there was no room for the buffered bytes.
    if (!file.flush() || file.error() != QFileDevice::NoError)
        return {FileFault::Failed, file.errorString()};
    if (!isWanted(progress, bytes.size()))
        return {FileFault::Cancelled};
    return file.commit() ? FileOutcome{} : FileOutcome{FileFault::Failed, file.errorString()};
}
