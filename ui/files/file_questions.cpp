#include "ui/files/file_questions.h"

#include "ui/question.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

#include <memory>

namespace
{
QString translated(const char* text)
{
    return QCoreApplication::translate("FileQuestions", text);
}

/// Deletes itself once it is closed, but not within its own accept(): the question that stands
/// there runs an event loop and would be deleted with it.
class FileDialog : public QFileDialog
{
public:
    using QFileDialog::QFileDialog;

protected:
    void accept() override
    {
        ++m_accepting;
        QFileDialog::accept();
        --m_accepting;
        leave();
    }

    void done(int result) override
    {
        QFileDialog::done(result);
        m_isOver = true;
        leave();
    }

private:
    void leave()
    {
        if (m_isOver && m_accepting == 0)
            deleteLater();
    }

    int m_accepting = 0;
    bool m_isOver = false;
};

/// What follows the choice can take long and run event loops of its own. Started inside the
/// dialog's accept(), it would run while the dialog is still on the screen and is deleted in one of
/// those loops.
QFileDialog* newDialog(QWidget* window, const FileQuestion& question, const FileChosen& chosen)
{
    auto* dialog = new FileDialog(window, question.title, question.folder, question.filter);
    const auto path = std::make_shared<QString>();
    QObject::connect(dialog, &QFileDialog::fileSelected, window,
                     [path](const QString& selected) { *path = selected; });
    const auto go = [path, chosen] {
        if (!path->isEmpty())
            chosen(*path);
    };
    QObject::connect(dialog, &QObject::destroyed, window, go, Qt::QueuedConnection);
    return dialog;
}

/// A name without a suffix gets that of the type chosen in the dialog.
void followType(QFileDialog* dialog)
{
    const auto follow = [dialog](const QString& filter) {
        static const QRegularExpression suffix(QStringLiteral("\\*\\.(\\w+)"));
        dialog->setDefaultSuffix(suffix.match(filter).captured(1));
    };
    follow(dialog->selectedNameFilter());
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, follow);
}
} // namespace

void askFileToOpen(QWidget* window, const FileQuestion& question, const FileChosen& chosen)
{
    QFileDialog* dialog = newDialog(window, question, chosen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->open();
}

void askFileToSave(QWidget* window, const FileQuestion& question, const FileChosen& chosen)
{
    const auto complete = [window, question, chosen](const QString& typed) {
        const QString path = question.completed ? question.completed(typed) : typed;
        if (path == typed || !QFileInfo::exists(path)) {
            chosen(path);
            return;
        }
        // The dialog has asked about the name as it was typed.
        askBefore(window, question.title,
                  translated(QT_TRANSLATE_NOOP("FileQuestions", "%1 already exists. Replace it?"))
                      .arg(QFileInfo(path).fileName()),
                  translated(QT_TRANSLATE_NOOP("FileQuestions", "Replace")),
                  [chosen, path] { chosen(path); });
    };
    QFileDialog* dialog = newDialog(window, question, complete);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    if (!question.completed)
        followType(dialog);
    dialog->selectFile(question.proposedName);
    dialog->open();
}
