#include "app/error_chip.h"

#include <QAbstractButton>

ErrorChip::ErrorChip(QAbstractButton& button, QObject* parent) : QObject(parent), m_button(button)
{
    connect(&m_button, &QAbstractButton::clicked, this, &ErrorChip::clear);
    clear();
}

void ErrorChip::retranslate()
{
    m_button.setText(m_count == 1 ? tr("1 error") : tr("%n errors", nullptr, m_count));
}

void ErrorChip::count()
{
    ++m_count;
    retranslate();
    m_button.show();
}

void ErrorChip::clear()
{
    m_count = 0;
    m_button.hide();
}
