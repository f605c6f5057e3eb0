#include "sweep/list/list_file_dialogs.h"

#include "link/notices.h"
#include "sweep/list/list_file.h"
#include "sweep/list/point_table.h"
#include "ui/files/file_questions.h"
#include "ui/files/file_work.h"
#include "ui/files/user_folder.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

namespace
{
const QString suffix = QStringLiteral(".csv");
/// More than that take long to show, and are perhaps not what was meant.
constexpr std::size_t unaskedRows = 100000;

QString proposedName()
{
    const QDateTime now = QDateTime::currentDateTime();
    return QStringLiteral("List_") + now.toString(QStringLiteral("dd.MM.yy")) + QLatin1Char('_') +
           now.toString(QStringLiteral("hh.mm.ss"));
}

/// With the suffix of lists where there is none. Two digits behind the last point are the seconds
/// of a proposed name.
QString withSuffix(const QString& path)
{
    const QString last = QFileInfo(path).suffix();
    const bool isNumber =
        std::all_of(last.begin(), last.end(), [](QChar c) { return c.isDigit(); });
    return isNumber ? path + suffix : path;
}

QString nameIn(const QString& path)
{
    return QFileInfo(path).fileName();
}
} // namespace

ListFileDialogs::ListFileDialogs(PointTable* table) : QObject(table), m_table(table) {}

void ListFileDialogs::save()
{
    askFileToSave(
        m_table->window(),
        {tr("Save List"), madeUserFolder(), QStringLiteral("*.csv"), proposedName(), &withSuffix},
        [this](const QString& path) {
            saveTo(path);
            m_table->window()->activateWindow();
        });
}

void ListFileDialogs::saveTo(const QString& path)
{
    const QString name = nameIn(path);
    Notices& notices = m_table->context().notices;
    const FileOutcome written = writeBeside(m_table->window(), path, listText(m_table->points()));
    if (written.fault == FileFault::None)
        notices.say([name] { return tr("List saved: %1").arg(name); });
    else if (written.fault == FileFault::Cancelled)
        notices.say([name] { return tr("Not saved: %1").arg(name); });
    else
        emit errorMessage(tr("The list could not be saved as %1: %2").arg(name, written.detail()));
}

void ListFileDialogs::open()
{
    askFileToOpen(m_table->window(),
                  {tr("Open List"), madeUserFolder(), QStringLiteral("CSV File ( *.csv )")},
                  [this](const QString& path) {
                      openFrom(path);
                      m_table->window()->activateWindow();
                  });
}

void ListFileDialogs::openFrom(const QString& path)
{
    const QString name = nameIn(path);
    ReadList cancelled;
    cancelled.error = ListFileError::Cancelled;
    const ReadList read = readBeside(m_table->window(), path, &readListFile).value_or(cancelled);
    const auto take = [this, rows = read.rows, name, hasHeading = read.hasHeading] {
        if (!m_table->change({0, m_table->rowCount(), rows}, tr("Open list")))
            return;
        m_table->scrollToTop();
        if (hasHeading)
            m_table->context().notices.say(
                [name] { return tr("%1: the first line is a heading and was skipped").arg(name); });
    };
    if (read.error != ListFileError::None)
        tellError(name, read);
    else if (read.rows.size() <= unaskedRows)
        take();
    else
        askBefore(m_table->window(), tr("Open List"),
                  tr("%1 has %2 points. Open it?").arg(name).arg(read.rows.size()), tr("Open"),
                  take);
}

void ListFileDialogs::tellError(const QString& name, const ReadList& read)
{
    Notices& notices = m_table->context().notices;
    switch (read.error) {
    case ListFileError::None:
        break;
    case ListFileError::Cancelled:
        notices.say([name] { return tr("Not opened: %1").arg(name); });
        break;
    case ListFileError::LongCell:
        emit errorMessage(tr("%1, line %2: a field is longer than %3 characters")
                              .arg(name)
                              .arg(read.line)
                              .arg(longestCell));
        break;
    case ListFileError::NotOpened:
        notices.say([name, file = read.file] {
            return tr("%1 cannot be opened: %2").arg(name, file.detail());
        });
        break;
    case ListFileError::NotRead:
        emit errorMessage(tr("%1 cannot be read: %2").arg(name, read.file.detail()));
        break;
    case ListFileError::NotText:
        emit errorMessage(tr("%1: not valid UTF-8 text").arg(name));
        break;
    case ListFileError::NoNumber:
        emit errorMessage(
            tr("%1, line %2: \"%3\" is not a number").arg(name).arg(read.line).arg(read.field));
        break;
    case ListFileError::ForeignUnit:
        emit errorMessage(tr("%1, line %2: the unit of \"%3\" does not fit the column")
                              .arg(name)
                              .arg(read.line)
                              .arg(read.field));
        break;
    case ListFileError::TooManyLines:
        emit errorMessage(tr("%1: more than %2 lines").arg(name).arg(mostListLines));
        break;
    }
}
