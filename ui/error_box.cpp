#include "ui/error_box.h"

#include <QPushButton>

ErrorBox::ErrorBox(const QString& message, QWidget* parent)
    : PanelDialog(tr("Error"), message, parent)
{
    setWindowModality(Qt::ApplicationModal);
    QPushButton* cancel = addButton("cancel", tr("Cancel"), tr("Close the message (Esc)"));
    cancel->setDefault(true);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
}

ErrorBox* ErrorBox::report(const QString& message, QWidget* parent)
{
    // Only the newest is shown; a pile of boxes would have to be closed one by one.
    if (parent) {
        const auto older = parent->findChildren<ErrorBox*>();
        for (ErrorBox* box : older)
            box->close();
    }
    auto* box = new ErrorBox(message, parent);
    box->show();
    return box;
}
