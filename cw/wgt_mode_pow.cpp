#include "cw/wgt_mode_pow.h"

#include "fields/keypad/keypad_place.h"
#include "ui/named.h"
#include "ui/window_chrome.h"

#include <QFrame>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QScreen>

namespace
{
constexpr int margin = 16;
constexpr int spacing = 8;
constexpr int appearMs = 160;
} // namespace

WgtModePow::WgtModePow(const QAbstractButton& opener, QWidget* parent)
    : QDialog(parent), m_opener(opener)
{
    setObjectName(QStringLiteral("WgtModePow"));
    new WindowChrome(this);
    build();
    retranslate();
    connect(&m_opener, &QAbstractButton::clicked, this, &WgtModePow::open);
    connect(m_yes, &QPushButton::clicked, this, &WgtModePow::confirm);
    connect(m_cancel, &QPushButton::clicked, this, &QWidget::close);
    installEventFilter(this);
}

void WgtModePow::build()
{
    m_plate = named("widget", new QFrame(this));
    auto* buttons = new QHBoxLayout;
    buttons->setObjectName(QStringLiteral("horizontalLayout"));
    m_yes = named("butYes", new QPushButton(m_plate));
    m_yes->setAutoDefault(false);
    m_cancel = named("butCancel", new QPushButton(m_plate));
    // Power beyond the calibrated range must not be switched on by a stray Return.
    m_cancel->setDefault(true);
    m_firstLabel = named("lblModePowFirst", new QLabel(m_plate));
    m_lastLabel = named("lblModePowLast", new QLabel(m_plate));
    m_lastLabel->hide();
    for (QLabel* label : {m_firstLabel, m_lastLabel}) {
        label->setTextFormat(Qt::RichText);
        // It would take the mouse that moves the window.
        label->setTextInteractionFlags(Qt::NoTextInteraction);
        label->setAlignment(Qt::AlignCenter);
    }

    buttons->setSpacing(spacing);
    buttons->addWidget(m_yes, 1);
    buttons->addWidget(m_cancel, 1);
    auto* rows = new QVBoxLayout(m_plate);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(margin);
    rows->addWidget(m_firstLabel);
    rows->addLayout(buttons);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSizeConstraint(QLayout::SetFixedSize);
    whole->addWidget(m_plate);
}

void WgtModePow::retranslate()
{
    m_firstPrompt = tr("Turn ON maximum<br>(non-calibrated)<br>power mode?");
    m_lastPrompt = tr("Turn OFF maximum<br>(non-calibrated)<br>power mode?");
    m_firstLabel->setText(m_asksLast ? m_lastPrompt : m_firstPrompt);
    m_lastLabel->setText(m_asksLast ? m_firstPrompt : m_lastPrompt);
    setWindowTitle(tr("Maximum power mode"));
    setAccessibleName(windowTitle());
    m_yes->setText(tr("Yes"));
    m_yes->setToolTip(tr("Switch the mode"));
    m_yes->setAccessibleName(m_yes->text());
    m_cancel->setText(tr("Cancel"));
    m_cancel->setToolTip(tr("Leave the mode as it is (Esc)"));
    m_cancel->setAccessibleName(m_cancel->text());
}

void WgtModePow::open()
{
    if (!isVisible()) {
        adjustSize();
        const QRect opener(m_opener.mapToGlobal(QPoint()), m_opener.size());
        move(placeBeside(opener, size(), m_opener.screen()->availableGeometry()));
        fadeIn();
    }
    slotShowChilds();
    show();
    raise();
    activateWindow();
    m_cancel->setFocus();
}

void WgtModePow::fadeIn()
{
    auto* effect = new QGraphicsOpacityEffect(m_plate);
    m_plate->setGraphicsEffect(effect);
    auto* fade = new QPropertyAnimation(effect, "opacity", effect);
    fade->setDuration(appearMs);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    connect(fade, &QAbstractAnimation::finished, effect, &QObject::deleteLater);
    fade->start();
}

void WgtModePow::slotShowChilds()
{
    for (QWidget* child : {static_cast<QWidget*>(m_yes), static_cast<QWidget*>(m_cancel),
                           static_cast<QWidget*>(m_firstLabel)})
        child->show();
}

void WgtModePow::slotSwitchText()
{
    m_asksLast = !m_asksLast;
    retranslate();
}

void WgtModePow::confirm()
{
    emit signalSwitchMode();
    slotSwitchText();
    close();
}

bool WgtModePow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (!isEscape)
        return QDialog::eventFilter(watched, event);
    close();
    return true;
}
