#include "tests/support/documents_folder.h"

#include <QDir>
#include <QSettings>

namespace
{
const QString documents = QStringLiteral("Personal");
}

/// The setting that the system looks its folders up in.
struct DocumentsFolder::Before {
    QSettings folders{QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\"
                                     "CurrentVersion\\Explorer\\User Shell Folders"),
                      QSettings::NativeFormat};
    QVariant path = folders.value(documents);
};

DocumentsFolder::DocumentsFolder(const QString& home)
    : m_path(home + "/Documents"), m_before(new Before)
{
    QDir().mkpath(m_path);
    m_before->folders.setValue(documents, QDir::toNativeSeparators(m_path));
    m_before->folders.sync();
}

DocumentsFolder::~DocumentsFolder()
{
    if (m_before->path.isValid())
        m_before->folders.setValue(documents, m_before->path);
    else
        m_before->folders.remove(documents);
}
