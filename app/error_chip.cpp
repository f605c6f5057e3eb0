#include "app/error_chip.h"

#include "link/notices.h"
#include "link/scpi_session.h"

#include <QAbstractButton>

ErrorChip::ErrorChip(QAbstractButton& button, const ScpiSession& session, Notices& notices)
    : m_button(button)
{
    // A click on it leaves the keyboard focus where it was.
    m_button.setFocusPolicy(Qt::TabFocus);
    connect(&m_button, &QAbstractButton::clicked, this, &ErrorChip::clear);
    connect(&session, &ScpiSession::errorReported, this,
            [this, &notices](const InstrumentError& error) {
                count();
                notices.sayOfInstrument([error] { return errorWords(error); });
            });
    connect(&m_button, &QAbstractButton::clicked, this, &ErrorChip::clicked);
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
    // Hidden while it has the focus, it would pass the focus on: to the RF output, while a run
    // disables the fields.
    m_button.clearFocus();
    m_button.hide();
}
