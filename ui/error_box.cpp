#include "ui/error_box.h"

#include <QPushButton>

ErrorBox::ErrorBox(const QString& message, QWidget* parent)
    : PanelDialog(tr("Error"), message, parent)
{
    setWindowModality(Qt::ApplicationModal);
    QPushButton* cancel = addButton("cancel", tr("Cancel"), tr("Put the message away (Esc)"));
    cancel->setDefault(true);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
}

ErrorBox* ErrorBox::report(const QString& message, QWidget* parent)
{
    // The newest says it; a pile of them would have to be put away one by one.
    if (parent) {
        const auto older = parent->findChildren<ErrorBox*>();
        for (ErrorBox* box : older)
            box->close();
    }
    auto* box = new ErrorBox(message, parent);
    box->show();
    return box;
}
