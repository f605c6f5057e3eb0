#include "profiles/quick_numbers.h"

#include <QFileInfo>
#include <QMap>

namespace
{
constexpr qint64 mostBytes = 1 << 20;

QString nameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}
} // namespace

QuickNumbers::QuickNumbers(const QString& folder)
    : m_path(folder + QStringLiteral("/quick_numbers.txt"))
{
}

/// One line for each: the number, a blank, the file's name. Anything else is passed over.
FileBytes QuickNumbers::load()
{
    const FileBytes read = readWholeFile(m_path, mostBytes);
    if (read.fault != FileFault::None)
        return read;
    m_numbers.clear();
    const QStringList lines = QString::fromUtf8(read.bytes).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const int number = line.section(QLatin1Char(' '), 0, 0).toInt();
        if (number > 0)
            m_numbers.insert(line.section(QLatin1Char(' '), 1).trimmed(), number);
    }
    return read;
}

/// Unless they are kept already: whoever watches the folder looks again after every write.
void QuickNumbers::store(const FileBytes& before) const
{
    QMap<int, QString> names;
    for (auto each = m_numbers.cbegin(); each != m_numbers.cend(); ++each)
        names.insert(each.value(), each.key());
    QString lines;
    for (auto each = names.cbegin(); each != names.cend(); ++each)
        lines += QStringLiteral("%1 %2\n").arg(QString::number(each.key()), each.value());
    const bool isReadable = before.fault == FileFault::None || before.fault == FileFault::Missing;
    // A folder that takes no file takes no new profile either.
    if (isReadable && lines.toUtf8() != before.bytes)
        writeWholeFile(m_path, lines.toUtf8());
}

QStringList QuickNumbers::inOrder(const QStringList& paths)
{
    // An unreachable folder looks empty: its numbers are not forgotten for that.
    if (paths.isEmpty())
        return paths;
    const FileBytes before = load();
    QMap<int, QString> taken;
    QStringList unnumbered;
    for (const QString& path : paths) {
        const int number = numberOf(path);
        if (number > 0 && !taken.contains(number))
            taken.insert(number, path);
        else
            unnumbered << path;
    }
    int free = 1;
    for (const QString& path : qAsConst(unnumbered)) {
        while (taken.contains(free))
            ++free;
        taken.insert(free, path);
    }
    m_numbers.clear();
    for (auto each = taken.cbegin(); each != taken.cend(); ++each)
        m_numbers.insert(nameOf(each.value()), each.key());
    store(before);
    return taken.values();
}

int QuickNumbers::numberOf(const QString& path) const
{
    return m_numbers.value(nameOf(path));
}

void QuickNumbers::moved(const QString& path, const QString& newPath)
{
    const FileBytes before = load();
    const int number = m_numbers.take(nameOf(path));
    if (number == 0)
        return;
    m_numbers.insert(nameOf(newPath), number);
    store(before);
}

void QuickNumbers::exchange(const QString& path, int number)
{
    const FileBytes before = load();
    const QString other = m_numbers.key(number);
    const int freed = numberOf(path);
    if (!other.isEmpty() && freed > 0)
        m_numbers.insert(other, freed);
    m_numbers.insert(nameOf(path), number);
    store(before);
}
