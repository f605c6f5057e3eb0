#include "service/open_document.h"

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>

namespace
{
const QString variable = QStringLiteral("KLV_DOCUMENT");
} // namespace

// On the command line the interpreter would drop the quotes of a path with parentheses or an &, run
// what stands behind that, and put variables in the place of what stands between two %. A path out
// of a variable is not looked at again, and within the quotes that are left once /S has taken the
// outer ones it is one word.
bool openDocument(const QString& path)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(variable, QDir::toNativeSeparators(path));
    process.setProcessEnvironment(environment);
    process.setProgram(QStringLiteral("cmd"));
    // As one native command line: QProcess would escape the quotes of an argument once more.
    process.setNativeArguments(QStringLiteral("/D /V:OFF /S /C \"\"%%1%\"\"").arg(variable));
    return process.startDetached();
}

bool openHelpPage(const QString& path, const QString& page)
{
    // Windows' own viewer takes the page after the file; the desktop's association takes the file
    // alone.
    const bool isCompiled = path.endsWith(QLatin1String(".chm"), Qt::CaseInsensitive);
    const QString target = QDir::toNativeSeparators(path) + QLatin1String("::/") + page;
    return (isCompiled && QProcess::startDetached(QStringLiteral("hh.exe"), {target})) ||
           openDocument(path);
}
