#include "ui/question.h"

#include <QPushButton>

Question::Question(const QString& title, const QString& text, const QString& yesText,
                   QWidget* parent)
    : PanelDialog(title, text, parent)
{
    setObjectName(QStringLiteral("Question"));
    const QPushButton* yes = addButton("yes", yesText, yesText);
    QPushButton* cancel = addButton("cancel", tr("Cancel"), tr("Leave everything as it is (Esc)"));
    connect(yes, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    cancel->setDefault(true);
    cancel->setFocus();
}

Question* askBefore(QWidget* window, const QString& title, const QString& question,
                    const QString& yesText, const std::function<void()>& confirmed)
{
    auto* dialog = new Question(title, question, yesText, window);
    QObject::connect(dialog, &QDialog::accepted, window, confirmed);
    dialog->open();
    return dialog;
}
