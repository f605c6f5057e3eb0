#include "connection/demo_mode.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QSaveFile>
#include <QTimer>

namespace
{
constexpr char fileVariable[] = "KLV_DEMO_FILE";
/// How the simulated instrument marks itself there.
constexpr char bootloaderSection[] = "[bootloader ";
constexpr int bootloaderMs = 3000;
constexpr char libraryName[] = "VeVISA32";
constexpr char oneInstrument[] = "[20215678]\nmodel=KLV-20G\nfirmware=2.7.1\n";
} // namespace

DemoMode::DemoMode() : m_instrumentsFile(qEnvironmentVariable(fileVariable))
{
    if (!m_instrumentsFile.isEmpty())
        return;
    // A file even in the ordinary case: an instrument that leaves its mass-storage mode comes back
    // through it, as a real one does through the bus.
    m_instrumentsFile = m_folder.filePath(QStringLiteral("instruments.ini"));
    QFile file(m_instrumentsFile);
    if (file.open(QIODevice::WriteOnly))
        file.write(oneInstrument);
    qputenv(fileVariable, QFile::encodeName(m_instrumentsFile));
    m_ownsFile = true;
}

DemoMode::~DemoMode()
{
    // The next DemoMode would take it for one named by the user.
    if (m_ownsFile)
        qunsetenv(fileVariable);
}

void DemoMode::endBootloaderSoon()
{
    QTimer::singleShot(bootloaderMs, this, [this] {
        QFile before(m_instrumentsFile);
        QSaveFile after(m_instrumentsFile);
        if (!before.open(QIODevice::ReadOnly) || !after.open(QIODevice::WriteOnly))
            return;
        after.write(before.readAll().replace(bootloaderSection, "["));
        before.close(); // Windows replaces no open file
        after.commit();
    });
}

QString DemoMode::libraryPath()
{
    const QString program = QCoreApplication::applicationDirPath();
    // Beside the program, or where the build tree has it for programs in its other folders.
    const QString names[] = {QStringLiteral("/demo/lib%1.so"), QStringLiteral("/../demo/lib%1.so"),
                             QStringLiteral("/demo/%1.dll"), QStringLiteral("/../bin/demo/%1.dll")};
    for (const QString& name : names) {
        const QString path = program + name.arg(QLatin1String(libraryName));
        if (QFileInfo::exists(path))
            return QFileInfo(path).canonicalFilePath();
    }
    return program + QStringLiteral("/demo/") + QLatin1String(libraryName);
}
