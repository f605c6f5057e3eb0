#include "ui/state_button.h"

#include <QPainter>
#include <QShortcut>

namespace
{
constexpr int fadeMs = 160;
}

StateButton::StateButton(QWidget* parent) : QPushButton(parent), m_shortcut(new QShortcut(this))
{
    m_fade.setStartValue(1.0);
    m_fade.setEndValue(0.0);
    m_fade.setDuration(fadeMs);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_fade, &QVariantAnimation::finished, this, [this] { m_lookBefore = QPixmap(); });
    connect(this, &QAbstractButton::toggled, this, &StateButton::showCaption);
    // A held key is one click, not RF power on and off and on.
    m_shortcut->setAutoRepeat(false);
    connect(m_shortcut, &QShortcut::activated, this, &QAbstractButton::click);
}

void StateButton::setTextOff(const QString& text)
{
    m_textOff = text;
    showCaption();
}

void StateButton::setTextOn(const QString& text)
{
    m_textOn = text;
    showCaption();
}

QKeySequence StateButton::keys() const
{
    return m_shortcut->key();
}

void StateButton::setKeys(const QKeySequence& keys)
{
    m_shortcut->setKey(keys);
}

void StateButton::showCaption()
{
    if (!m_textOff.isEmpty() || !m_textOn.isEmpty())
        setText(isChecked() ? m_textOn : m_textOff);
}

void StateButton::nextCheckState()
{
    if (isCheckable() && isVisible()) {
        m_lookBefore = grab();
        m_fade.stop();
        m_fade.start();
    }
    QPushButton::nextCheckState();
}

void StateButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    if (m_lookBefore.isNull())
        return;
    QPainter painter(this);
    painter.setOpacity(m_fade.currentValue().toReal());
    painter.drawPixmap(0, 0, m_lookBefore);
}
