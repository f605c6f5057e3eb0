#include "sweep/list/list_file_dialogs.h"

#include "link/notices.h"
#include "sweep/list/list_document.h"
#include "sweep/list/list_file.h"
#include "sweep/list/point_table.h"
#include "ui/files/file_questions.h"
#include "ui/files/file_work.h"
#include "ui/question.h"

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

ListFileDialogs::ListFileDialogs(PointTable* table)
    : QObject(table), m_table(table), m_document(new ListDocument(table))
{
}

void ListFileDialogs::save()
{
    askFileToSave(m_table->window(),
                  {tr("Save List"), m_document->folder(), QStringLiteral("*.csv"), proposedName(),
                   &withSuffix},
                  [this](const QString& path) {
                      saveTo(path);
                      m_table->window()->activateWindow();
                  });
}

void ListFileDialogs::saveTo(const QString& path)
{
    const QString name = nameIn(path);
    Notices& notices = m_table->context().notices;
    m_table->dropUnusedRow();
    const int revision = m_table->revision();
    const FileOutcome written = writeBeside(m_table->window(), path, listText(m_table->points()));
    if (written.fault == FileFault::None) {
        m_document->setFile(path, revision);
        notices.sayDone([name] { return tr("List saved: %1").arg(name); });
    } else if (written.fault == FileFault::Cancelled)
        notices.say([name] { return tr("Not saved: %1").arg(name); });
    else
        emit errorMessage(tr("The list could not be saved as %1: %2").arg(name, written.detail()));
}

void ListFileDialogs::open()
{
    askFileToOpen(m_table->window(),
                  {tr("Open List"), m_document->folder(), QStringLiteral("CSV File ( *.csv )")},
                  [this](const QString& path) {
                      openFile(path);
                      m_table->window()->activateWindow();
                  });
}

void ListFileDialogs::openFile(const QString& path)
{
    const QString name = nameIn(path);
    ReadList cancelled;
    cancelled.error = ListFileError::Cancelled;
    const ReadList read = readBeside(m_table->window(), path, &readListFile).value_or(cancelled);
    if (read.error == ListFileError::NotOpened)
        m_document->forgetRecent(path);
    if (read.error != ListFileError::None)
        tellError(name, read);
    else if (read.rows.size() <= unaskedRows)
        take(path, read);
    else
        askBefore(m_table->window(), tr("Open List"),
                  tr("%1 has %2 points. Open it?").arg(name).arg(read.rows.size()), tr("Open"),
                  [this, path, read] { take(path, read); });
}

void ListFileDialogs::take(const QString& path, const ReadList& read)
{
    if (!m_table->change({0, m_table->rowCount(), read.rows}, tr("Open list")))
        return;
    m_document->setFile(path, m_table->revision());
    m_table->scrollToTop();
    if (!read.hasHeading)
        return;
    const StatusWords words = [name = nameIn(path), isScaled = read.isScaled] {
        return isScaled
                   ? tr("%1: the columns were converted from the units of the heading").arg(name)
                   : tr("%1: the first line is a heading and was skipped").arg(name);
    };
    m_table->context().notices.say(words);
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
