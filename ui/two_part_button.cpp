#include "ui/two_part_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace
{
constexpr int padding = 10;
constexpr int inset = 2; // the frame, or the ring of the focus
} // namespace

TwoPartButton::TwoPartButton(const QString& objectName, QWidget* parent) : QPushButton(parent)
{
    setObjectName(objectName);
    setCheckable(true);
    connect(this, &QAbstractButton::toggled, this, &TwoPartButton::showText);
}

void TwoPartButton::setTexts(const QString& unchecked, const QString& checked)
{
    m_texts = {unchecked, checked};
    showText();
    updateGeometry();
}

QSize TwoPartButton::sizeHint() const
{
    ensurePolished();
    const int widest = std::max(fontMetrics().horizontalAdvance(m_texts[0]),
                                fontMetrics().horizontalAdvance(m_texts[1]));
    return {2 * (widest + 2 * padding + inset), QPushButton::sizeHint().height()};
}

void TwoPartButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton frame;
    initStyleOption(&frame);
    frame.state &= ~QStyle::State_On;
    frame.state |= QStyle::State_Off;
    painter.drawControl(QStyle::CE_PushButtonBevel, frame);

    QStyleOptionButton part = frame;
    part.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver | QStyle::State_Sunken);
    const int middle = width() / 2;
    const QRect halves[] = {QRect(0, 0, middle, height()),
                            QRect(middle, 0, width() - middle, height())};
    for (int half = 0; half < 2; ++half) {
        const bool isLit = (half == 1) == isChecked();
        part.state.setFlag(QStyle::State_On, isLit);
        part.state.setFlag(QStyle::State_Off, !isLit);
        part.rect = halves[half].adjusted(inset, inset, -inset, -inset);
        part.text = m_texts[static_cast<std::size_t>(half)];
        if (isLit)
            painter.drawControl(QStyle::CE_PushButtonBevel, part);
        painter.drawControl(QStyle::CE_PushButtonLabel, part);
    }
}
