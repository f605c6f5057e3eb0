#include "ui/error_box.h"

#include "ui/window_chrome.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

ErrorBox::ErrorBox(const QString& message, QWidget* parent) : QDialog(parent)
{
    const QIcon logo(QStringLiteral(":/images/logotip.png"));
    setWindowTitle(tr("Error"));
    setWindowIcon(logo);
    setWindowModality(Qt::ApplicationModal);
    setAttribute(Qt::WA_DeleteOnClose);
    new WindowChrome(this);

    auto* surface = new QFrame(this);
    surface->setObjectName(QStringLiteral("dialog_surface"));
    auto* icon = new QLabel(surface);
    icon->setPixmap(logo.pixmap(24));
    auto* title = new QLabel(windowTitle(), surface);
    title->setObjectName(QStringLiteral("dialog_title"));
    auto* text = new QLabel(message, surface);
    text->setObjectName(QStringLiteral("message"));
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text->setWordWrap(true);
    text->setMinimumWidth(360);
    auto* cancel = new QPushButton(tr("Cancel"), surface);
    cancel->setObjectName(QStringLiteral("cancel"));
    cancel->setToolTip(tr("Put the message away (Esc)"));
    cancel->setAccessibleName(cancel->text());
    cancel->setMinimumWidth(112);
    cancel->setDefault(true);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);

    auto* titleRow = new QHBoxLayout;
    titleRow->setSpacing(8);
    titleRow->addWidget(icon);
    titleRow->addWidget(title, 1);
    auto* rows = new QVBoxLayout(surface);
    rows->setContentsMargins(24, 16, 24, 24);
    rows->setSpacing(16);
    rows->addLayout(titleRow);
    rows->addWidget(text);
    rows->addWidget(cancel, 0, Qt::AlignRight);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    whole->addWidget(surface);
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
