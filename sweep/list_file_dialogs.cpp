#include "sweep/list_file_dialogs.h"

#include "panel/user_folder.h"
#include "sweep/list_file.h"
#include "sweep/point_table.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include <algorithm>

namespace
{
const QString suffix = QStringLiteral(".csv");

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

/// The file chosen in a dialog; empty when there is none.
QString chosenFile(QFileDialog& dialog)
{
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
} // namespace

ListFileDialogs::ListFileDialogs(PointTable* table) : QObject(table), m_table(table) {}

void ListFileDialogs::save()
{
    QFileDialog dialog(m_table->window(), tr("Save List"), madeUserFolder(),
                       QStringLiteral("*.csv"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(proposedName());
    const QString chosen = chosenFile(dialog);
    if (chosen.isEmpty())
        return;
    const QString path = withSuffix(chosen);
    // The dialog has asked only about the name that it knew.
    if (path == chosen || !QFileInfo::exists(path) || mayBeReplaced(path))
        saveTo(path);
    m_table->window()->activateWindow();
}

bool ListFileDialogs::mayBeReplaced(const QString& path) const
{
    return QMessageBox::question(m_table->window(), tr("Save List"),
                                 tr("%1 already exists.\nDo you want to replace it?")
                                     .arg(QDir::toNativeSeparators(path))) == QMessageBox::Yes;
}

void ListFileDialogs::saveTo(const QString& path)
{
    const QString failure = writeListFile(path, m_table->points());
    const QString name = QFileInfo(path).fileName();
    if (failure.isEmpty())
        emit statusMessage(tr("List saved: %1").arg(name));
    else
        emit errorMessage(tr("The list could not be saved as %1: %2").arg(name, failure));
}

void ListFileDialogs::open()
{
    QFileDialog dialog(m_table->window(), tr("Open List"), madeUserFolder(),
                       QStringLiteral("CSV File ( *.csv )"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QString path = chosenFile(dialog);
    if (path.isEmpty())
        return;
    openFrom(path);
    m_table->window()->activateWindow();
}

void ListFileDialogs::openFrom(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    const ReadList read = readListFile(path);
    switch (read.error) {
    case ListFileError::None:
        if (m_table->change({0, m_table->rowCount(), read.rows}, tr("Open list")))
            m_table->scrollToTop();
        break;
    case ListFileError::NotOpened:
        emit statusMessage(tr("%1 cannot be opened: %2").arg(name, read.detail));
        break;
    case ListFileError::NotRead:
        emit errorMessage(tr("%1 cannot be read: %2").arg(name, read.detail));
        break;
    case ListFileError::NotText:
        emit errorMessage(tr("%1 is not a list: it is no text in UTF-8").arg(name));
        break;
    case ListFileError::NoNumber:
        emit errorMessage(tr("%1 is not a list: \"%3\" in line %2 is no number")
                              .arg(name)
                              .arg(read.line)
                              .arg(read.detail));
        break;
    case ListFileError::TooManyLines:
        emit errorMessage(
            tr("%1 is not a list: it has more than %2 lines").arg(name).arg(mostListLines));
        break;
    }
}
