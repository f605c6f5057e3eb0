#include "service/firmware_dialog.h"

#include "ui/describe.h"
#include "ui/named.h"
#include "ui/window_chrome.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
constexpr int margin = 24;
constexpr int spacing = 8;
constexpr int buttonWidth = 112;
} // namespace

Firmware::Firmware(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("Firmware"));
    setWindowModality(Qt::WindowModal);
    new WindowChrome(this);
    build();
    connect(m_ok, &QPushButton::clicked, this, &Firmware::confirm);
    connect(m_cancel, &QPushButton::clicked, this, &QWidget::close);
    connect(m_close, &QToolButton::clicked, this, &QWidget::close);
    retranslate();
}

void Firmware::build()
{
    auto* plate = named("FirmwareCentralWgt", new QFrame(this));
    auto* header = named("header", new QLabel(plate));
    header->setPixmap(QPixmap(QStringLiteral(":/images/header.png")));
    m_caption = named("lblCaption", new QLabel(plate));
    m_close = named("butClose", new QToolButton(plate));
    m_close->setIcon(QIcon(QStringLiteral(":/images/close.png")));
    m_close->setAutoRaise(true);
    m_cancel = named("butCancel", new QPushButton(plate));
    // A stray Return must not send an instrument away.
    m_cancel->setDefault(true);
    m_ok = named("butOk", new QPushButton(plate));
    m_ok->setAutoDefault(false);
    m_message = named("lblMessage", new QLabel(plate));
    m_message->setTextFormat(Qt::RichText);
    // It would take the mouse that moves the window.
    m_message->setTextInteractionFlags(Qt::NoTextInteraction);

    auto* top = new QHBoxLayout;
    top->setSpacing(spacing);
    top->addWidget(header);
    top->addWidget(m_caption, 1);
    top->addWidget(m_close);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(spacing);
    buttons->addStretch(1);
    for (QPushButton* button : {m_ok, m_cancel}) {
        button->setMinimumWidth(buttonWidth);
        buttons->addWidget(button);
    }
    auto* rows = new QVBoxLayout(plate);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(2 * spacing);
    rows->addLayout(top);
    rows->addWidget(m_message);
    rows->addLayout(buttons);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    whole->addWidget(plate);
}

void Firmware::confirm()
{
    emit update();
    close();
}

void Firmware::retranslate()
{
    setWindowTitle(tr("Firmware update"));
    m_caption->setText(tr("Firmware update"));
    m_message->setText(tr("Clicking \"OK\" will switch the<br>device to \"Bootloader\" mode.<br>"
                          "Uploading an incorrect file will<br>damage your device!<br>"
                          "Proceed to update a firmware?"));
    m_close->setText(tr("Close"));
    m_cancel->setText(tr("Cancel"));
    m_ok->setText(tr("OK"));
    describe(m_close, m_close->text(), tr("Leave the instrument as it is (Esc)"));
    describe(m_cancel, m_cancel->text(), m_close->toolTip());
    describe(m_ok, m_ok->text(), tr("Switch the instrument into its bootloader"));
}

void Firmware::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_cancel->setFocus();
    // Once the box that asked for this one has gone, and taken the focus with it.
    QTimer::singleShot(0, this, [this] { activateWindow(); });
}

void Firmware::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}
