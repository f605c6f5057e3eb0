#include "profiles/open_save_xml_file.h"

#include "link/notices.h"
#include "profiles/profile_folder.h"
#include "ui/files/file_questions.h"
#include "ui/files/file_work.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace
{
const QString suffix = QStringLiteral(".xml");

QString withSuffix(const QString& path)
{
    return path.endsWith(suffix, Qt::CaseInsensitive) ? path : path + suffix;
}

QString proposedName()
{
    const QDateTime now = QDateTime::currentDateTime();
    return now.toString(QStringLiteral("dd.MM.yy_hh.mm.ss")) + suffix;
}
} // namespace

openSave_XML_FILE::openSave_XML_FILE(const QString& documentName, const QString& folder,
                                     const Owner& owner, Notices& notices, QWidget* window)
    : QObject(window), m_store(documentName), m_folder(folder), m_owner(owner), m_notices(notices),
      m_window(window), m_replay(m_store, owner.pause), m_numbers(folder),
      m_recalled(m_store, owner.fieldText)
{
}

QString openSave_XML_FILE::nameOf(const QString& path) const
{
    const QString name = readProfileName(path, m_store);
    return name.isEmpty() ? nameInPath(path) : name;
}

bool openSave_XML_FILE::hasQuickProfile(const QString& name) const
{
    return QFileInfo::exists(quickProfilePath(m_folder, name));
}

bool openSave_XML_FILE::save(const QString& path, const QString& name)
{
    return write(path, profileDocument(m_store, name, m_owner.fieldText));
}

bool openSave_XML_FILE::write(const QString& path, const QByteArray& document)
{
    if (path.size() >= pathLengthLimit) {
        emit error(tr("File name is too long"));
        return false;
    }
    const FileFault fault = writeBeside(m_window, path, document).fault;
    if (fault == FileFault::Cancelled)
        m_notices.say(
            [name = QFileInfo(path).fileName()] { return tr("Not saved: %1").arg(name); });
    else if (fault != FileFault::None)
        emit error(tr("Error saving file"));
    return fault == FileFault::None;
}

FileBytes openSave_XML_FILE::read(const QString& path) const
{
    return readBeside(m_window, path, &profileBytes)
        .value_or(FileBytes{{FileFault::Cancelled}, {}});
}

/// Reports the reason if no profile may be applied now.
bool openSave_XML_FILE::isRefused()
{
    if (m_replay.isRunning())
        return true;
    const StatusWords refusal = m_owner.refusal();
    if (refusal)
        m_notices.say(refusal);
    return refusal != nullptr;
}

bool openSave_XML_FILE::open(const QString& path)
{
    if (isRefused())
        return false;
    const ProfileFile file = profileOf(read(path), m_store);
    if (file.fault != ProfileFault::None) {
        sayFault(file.fault, path);
        return false;
    }
    // Reading may have taken a while.
    if (isRefused())
        return false;
    const QString name = file.name.isEmpty() ? QFileInfo(path).completeBaseName() : file.name;
    m_owner.setBusy(true);
    const bool isComplete = replay(file, true);
    m_owner.setBusy(false);
    m_recalled.take(path, isComplete);
    if (isComplete)
        m_notices.sayDone([name] { return tr("Profile applied: %1").arg(name); });
    else
        m_notices.say([name] { return tr("Profile only partly applied: %1").arg(name); });
    return isComplete;
}

bool openSave_XML_FILE::replay(const ProfileFile& file, bool isWaiting)
{
    m_owner.settle();
    const bool isComplete = m_replay.run(file.entries, isWaiting);
    m_owner.refresh();
    return isComplete;
}

void openSave_XML_FILE::sayFault(ProfileFault fault, const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    m_notices.say([fault, name] { return faultText(fault, name); });
}

QString openSave_XML_FILE::faultText(ProfileFault fault, const QString& name)
{
    switch (fault) {
    case ProfileFault::None:
        break;
    case ProfileFault::Missing:
        return tr("There is no profile %1").arg(name);
    case ProfileFault::Unreadable:
        return tr("The profile cannot be read, nothing applied: %1").arg(name);
    case ProfileFault::TooLarge:
        return tr("Too large for a profile, nothing applied: %1").arg(name);
    case ProfileFault::Cancelled:
        return tr("Reading was cancelled, nothing applied: %1").arg(name);
    case ProfileFault::Damaged:
        return tr("The profile is damaged, nothing applied: %1").arg(name);
    case ProfileFault::Foreign:
        return tr("Not a profile, nothing applied: %1").arg(name);
    }
    return QString();
}

bool openSave_XML_FILE::saveLast()
{
    QDir().mkpath(m_folder);
    const QString path = lastProfilePath(m_folder);
    return writeWholeFile(path, profileDocument(m_store, nameInPath(path), m_owner.fieldText))
               .fault == FileFault::None;
}

void openSave_XML_FILE::applyAtStart(const QString& path)
{
    const bool isLast = path.isEmpty();
    const ProfileFile file = readProfile(isLast ? lastProfilePath(m_folder) : path, m_store);
    if (file.fault == ProfileFault::None) {
        const bool isComplete = replay(file, false);
        if (!isLast)
            m_recalled.take(path, isComplete);
    } else if (!isLast)
        sayFault(file.fault, path);
    else if (file.fault != ProfileFault::Missing)
        m_notices.say(
            [] { return tr("The settings of the last run are damaged: defaults are used"); });
}

void openSave_XML_FILE::leaveOut()
{
    m_replay.leaveOut();
}

void openSave_XML_FILE::stop()
{
    m_replay.stop();
}

void openSave_XML_FILE::getQuickProfiles()
{
    const QStringList paths = m_numbers.inOrder(quickProfilePaths(m_folder));
    for (const QString& path : paths)
        emit sendQuickProfile(path);
}

void openSave_XML_FILE::openProfile()
{
    askFileToOpen(m_window, {tr("Open file"), m_folder, tr("XML File (*.xml)")},
                  [this](const QString& path) { open(path); });
}

void openSave_XML_FILE::saveProfile()
{
    QDir().mkpath(m_folder);
    askFileToSave(m_window,
                  {tr("Save file"), m_folder, tr("XML File (*.xml)"), proposedName(), &withSuffix},
                  [this](const QString& path) { saveAs(path); });
}

void openSave_XML_FILE::saveAs(const QString& path)
{
    const QFileInfo file(path);
    if (isNameRefused(file.fileName()) || !save(path, file.completeBaseName()))
        return;
    m_notices.sayDone([name = file.fileName()] { return tr("Profile saved: %1").arg(name); });
}

/// Reports the reason if a file cannot have this name.
bool openSave_XML_FILE::isNameRefused(const QString& name)
{
    if (isPossibleFileName(name))
        return false;
    emit error(tr("A file name can't contain any of the following characters:") +
               QLatin1Char('\n') + forbiddenCharacters());
    return true;
}

bool openSave_XML_FILE::saveQuickProfile(const QString& name)
{
    const QString plain = name.simplified();
    if (plain.isEmpty() || isNameRefused(plain))
        return false;
    if (isReservedName(plain)) {
        m_notices.say([plain] { return tr("This name is reserved: %1").arg(plain); });
        return false;
    }
    QDir().mkpath(m_folder);
    const QString path = quickProfilePath(m_folder, plain);
    if (!save(path, plain))
        return false;
    m_recalled.take(path, true);
    m_notices.sayDone([plain] { return tr("Profile saved: %1").arg(plain); });
    return true;
}

bool openSave_XML_FILE::renameQuickProfile(const QString& path, const QString& name)
{
    const QString plain = name.simplified();
    if (plain.isEmpty() || plain == nameOf(path) || isNameRefused(plain))
        return false;
    const QString newPath = quickProfilePath(m_folder, plain);
    // On some file systems a name that differs only in case is the same file.
    const bool isSameFile = QFileInfo(newPath) == QFileInfo(path);
    if (isReservedName(plain) || (hasQuickProfile(plain) && !isSameFile)) {
        m_notices.say(
            [plain] { return tr("There is already a profile of this name: %1").arg(plain); });
        return false;
    }
    const FileBytes bytes = read(path);
    const ProfileFault fault = profileOf(bytes, m_store).fault;
    if (fault != ProfileFault::None) {
        sayFault(fault, path);
        return false;
    }
    const QByteArray document = renamedDocument(bytes.bytes, m_store, plain);
    const bool isMoved = newPath != path;
    if (document.isEmpty() || (isMoved && !QFile::rename(path, newPath))) {
        m_notices.say(
            [name = nameOf(path)] { return tr("The profile could not be renamed: %1").arg(name); });
        return false;
    }
    if (isMoved)
        noteMoved(path, newPath);
    if (write(newPath, document))
        return true;
    if (isMoved && QFile::rename(newPath, path))
        noteMoved(newPath, path);
    return false;
}

void openSave_XML_FILE::noteMoved(const QString& path, const QString& newPath)
{
    m_numbers.moved(path, newPath);
    m_recalled.moved(path, newPath);
}

void openSave_XML_FILE::deleteProfile()
{
    const QString name = nameOf(m_chosen);
    if (!QFile::remove(m_chosen)) {
        m_notices.say([name] { return tr("The profile could not be deleted: %1").arg(name); });
        return;
    }
    m_recalled.forget(m_chosen);
    m_notices.sayDone([name] { return tr("Profile deleted: %1").arg(name); });
}
