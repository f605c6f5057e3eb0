#include "service/open_document.h"

#include <QProcess>

bool openDocument(const QString& path)
{
    // As one native command line: QProcess would quote the quotes of an argument once more.
    QProcess process;
    process.setProgram(QStringLiteral("cmd"));
    process.setNativeArguments(QStringLiteral("/C \"") + path + QLatin1Char('"'));
    return process.startDetached();
}
