#include "tests/support/documents_folder.h"

#include <QDir>

struct DocumentsFolder::Before {
    QByteArray home = qgetenv("HOME");
    QByteArray configuration = qgetenv("XDG_CONFIG_HOME");
};

DocumentsFolder::DocumentsFolder(const QString& home)
    : m_path(home + "/Documents"), m_before(new Before)
{
    QDir().mkpath(m_path);
    qputenv("HOME", QFile::encodeName(home));
    // Otherwise it is the folder that the user has configured there.
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home));
}

DocumentsFolder::~DocumentsFolder()
{
    qputenv("HOME", m_before->home);
    qputenv("XDG_CONFIG_HOME", m_before->configuration);
}
