#include "connection/running_copies.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QRegularExpression>
#include <QStandardPaths>

#include <unistd.h>

namespace
{
/// Outlasts the moment in which another copy tries the same lock only to look.
constexpr int LookMs = 20;
constexpr int ClaimMs = 100;

/// A folder of this user alone: others must not be able to place a lock there.
QString lockFolder()
{
    QString runtimeFolder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (!runtimeFolder.isEmpty() && QFileInfo(runtimeFolder).isWritable())
        return runtimeFolder;
    const QString folder = QDir::temp().filePath(QStringLiteral("klv-%1").arg(getuid()));
    QDir().mkpath(folder);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QFileInfo info(folder);
    return info.isDir() && !info.isSymLink() && info.ownerId() == getuid() ? folder : QString();
}

/// Readable for people, and by its hash different for every title whatever is in it.
QString lockName(const QString& title)
{
    // Without invalid characters, which no pattern matches.
    QString readable = QString::fromLatin1(title.left(40).toLatin1());
    static const QRegularExpression unfit(QStringLiteral("[^A-Za-z0-9-]+"));
    readable.replace(unfit, QStringLiteral("_"));
    const QByteArray hash =
        QCryptographicHash::hash(title.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return QStringLiteral("klv-%1-%2.lock").arg(readable, QString::fromLatin1(hash));
}

/// Empty without a folder to keep it in.
QString lockPath(const QString& title)
{
    const QString folder = lockFolder();
    return folder.isEmpty() ? QString() : QDir(folder).filePath(lockName(title));
}

/// Not taken yet; null without a path.
std::unique_ptr<QLockFile> lockAt(const QString& path)
{
    if (path.isEmpty())
        return nullptr;
    auto lock = std::make_unique<QLockFile>(path);
    // A copy may stay connected for days: only its death frees the lock, never its age.
    lock->setStaleLockTime(0);
    return lock;
}

bool isHeldByAnother(QLockFile& lock, int waitMs)
{
    return !lock.tryLock(waitMs) && lock.error() == QLockFile::LockFailedError;
}
} // namespace

struct RunningCopies::Claim {
    QString title;
    std::unique_ptr<QLockFile> lock;
};

RunningCopies::RunningCopies() = default;
RunningCopies::~RunningCopies() = default;

bool RunningCopies::isTitleTaken(const QString& title) const
{
    if (m_claim && m_claim->title == title)
        return true;
    // Only an existing lock file is tried: taking a lock waits for the disk.
    const QString path = lockPath(title);
    const std::unique_ptr<QLockFile> lock = lockAt(QFileInfo::exists(path) ? path : QString());
    return lock && isHeldByAnother(*lock, LookMs);
}

bool RunningCopies::claim(const QString& title)
{
    if (m_claim && m_claim->title == title)
        return false;
    std::unique_ptr<QLockFile> lock = lockAt(lockPath(title));
    if (lock && isHeldByAnother(*lock, ClaimMs))
        return false;
    m_claim.reset(new Claim{title, std::move(lock)});
    return true;
}

void RunningCopies::release()
{
    m_claim.reset();
}
