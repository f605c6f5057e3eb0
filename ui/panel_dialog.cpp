#include "ui/panel_dialog.h"

#include "ui/describe.h"
#include "ui/dialog_header.h"
#include "ui/named.h"
#include "ui/window_chrome.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace
{
constexpr int margin = 24;
constexpr int spacing = 16;
constexpr int leastTextWidth = 360;
constexpr int leastButtonWidth = 112;
} // namespace

PanelDialog::PanelDialog(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent), m_content(new QVBoxLayout), m_buttons(new QHBoxLayout)
{
    new WindowChrome(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    setWindowIcon(QIcon(QStringLiteral(":/images/logotip.png")));
    setAccessibleName(title);
    auto* surface = named("dialog_surface", new QFrame(this));
    auto* header = new DialogHeader(surface);
    header->setTitle(title);
    auto* message = named("message", new QLabel(text, surface));
    message->setTextFormat(Qt::PlainText);
    message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    message->setWordWrap(true);
    message->setMinimumWidth(leastTextWidth);
    m_buttons->setSpacing(spacing / 2);
    m_buttons->addStretch(1);

    auto* rows = new QVBoxLayout(surface);
    rows->setContentsMargins(margin, spacing, margin, margin);
    rows->setSpacing(spacing);
    rows->addWidget(header);
    rows->addWidget(message);
    rows->addLayout(m_content);
    rows->addLayout(m_buttons);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    whole->addWidget(surface);
}

QPushButton* PanelDialog::addButton(const char* name, const QString& caption,
                                    const QString& toolTip)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setMinimumWidth(leastButtonWidth);
    button->setAutoDefault(false);
    describe(button, QString(caption).remove(QLatin1Char('&')), toolTip);
    m_buttons->addWidget(button);
    return button;
}
