#include "app/demo_mode.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>

namespace
{
constexpr char fileVariable[] = "KLV_DEMO_FILE";
constexpr char libraryName[] = "VeVISA32";
constexpr char oneInstrument[] = "[20215678]\nmodel=KLV-20G\nfirmware=2.7.1\n";
} // namespace

DemoMode::DemoMode() : m_instrumentsFile(qEnvironmentVariable(fileVariable))
{
    if (!m_instrumentsFile.isEmpty())
        return;
    // A file even for the ordinary case: the instrument that leaves its mass-storage mode comes
    // back by way of it, as a real one does by way of the bus.
    m_instrumentsFile = m_folder.filePath(QStringLiteral("instruments.ini"));
    QFile file(m_instrumentsFile);
    if (file.open(QIODevice::WriteOnly))
        file.write(oneInstrument);
    qputenv(fileVariable, QFile::encodeName(m_instrumentsFile));
}

QString DemoMode::libraryPath()
{
    const QString program = QCoreApplication::applicationDirPath();
    const QString names[] = {QStringLiteral("/demo/lib%1.so"), QStringLiteral("/../demo/lib%1.so"),
                             QStringLiteral("/../lib/klv/demo/lib%1.so"),
                             QStringLiteral("/demo/%1.dll")};
    for (const QString& name : names) {
        const QString path = program + name.arg(QLatin1String(libraryName));
        if (QFileInfo::exists(path))
            return QFileInfo(path).canonicalFilePath();
    }
    return program + QStringLiteral("/demo/") + QLatin1String(libraryName);
}
