#include "profiles/profile_dialogs.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace
{
const QString suffix = QStringLiteral(".xml");

QString translated(const char* text)
{
    return QCoreApplication::translate("ProfileDialogs", text);
}

QFileDialog* newDialog(QWidget* window, const QString& title, const QString& folder)
{
    auto* dialog = new QFileDialog(
        window, title, folder, translated(QT_TRANSLATE_NOOP("ProfileDialogs", "XML File (*.xml)")));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

QString proposedName()
{
    const QDateTime now = QDateTime::currentDateTime();
    return now.toString(QStringLiteral("dd.MM.yy_hh.mm.ss")) + suffix;
}
} // namespace

void askProfileToOpen(QWidget* window, const QString& folder, const PathChosen& chosen)
{
    QFileDialog* dialog =
        newDialog(window, translated(QT_TRANSLATE_NOOP("ProfileDialogs", "Open file")), folder);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(dialog, &QFileDialog::fileSelected, window, chosen);
    dialog->open();
}

void askProfileToSave(QWidget* window, const QString& folder, const PathChosen& chosen)
{
    QFileDialog* dialog =
        newDialog(window, translated(QT_TRANSLATE_NOOP("ProfileDialogs", "Save file")), folder);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->selectFile(proposedName());
    QObject::connect(dialog, &QFileDialog::fileSelected, window, [window, chosen](QString path) {
        if (path.endsWith(suffix, Qt::CaseInsensitive)) {
            chosen(path);
            return;
        }
        // The dialog has asked about the name as it was typed.
        path += suffix;
        if (!QFileInfo::exists(path)) {
            chosen(path);
            return;
        }
        askBefore(window,
                  translated(QT_TRANSLATE_NOOP("ProfileDialogs", "%1 already exists. Replace it?"))
                      .arg(QFileInfo(path).fileName()),
                  translated(QT_TRANSLATE_NOOP("ProfileDialogs", "Replace")),
                  [chosen, path] { chosen(path); });
    });
    dialog->open();
}

void askBefore(QWidget* window, const QString& question, const QString& yesText,
               const std::function<void()>& confirmed)
{
    auto* box = new QMessageBox(QMessageBox::Question,
                                translated(QT_TRANSLATE_NOOP("ProfileDialogs", "Profiles")),
                                question, QMessageBox::NoButton, window);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton* yes = box->addButton(yesText, QMessageBox::AcceptRole);
    QPushButton* no = box->addButton(translated(QT_TRANSLATE_NOOP("ProfileDialogs", "Cancel")),
                                     QMessageBox::RejectRole);
    box->setDefaultButton(no);
    box->setEscapeButton(no);
    QObject::connect(yes, &QAbstractButton::clicked, window, confirmed);
    box->open();
}
