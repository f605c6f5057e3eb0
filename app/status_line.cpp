#include "app/status_line.h"

#include "connection/connection.h"
#include "link/scpi_session.h"

#include <QLabel>
#include <QVariant>

namespace
{
constexpr int messageMs = 6000;
/// A text that stays for less is not seen.
constexpr int seenMs = 20;
/// The outer and the inner of what goes on: more would not be read.
constexpr int mostActivities = 2;
const QString separator = QStringLiteral("  ·  ");
} // namespace

StatusLine::StatusLine(QLabel& label, QObject* parent) : QObject(parent), m_label(label)
{
    for (QTimer* timer : {&m_messageTimer, &m_faultTimer}) {
        timer->setSingleShot(true);
        timer->setInterval(messageMs);
    }
    connect(&m_messageTimer, &QTimer::timeout, this, [this] {
        m_message.clear();
        refresh();
    });
    connect(&m_faultTimer, &QTimer::timeout, this, &StatusLine::refresh);
    m_sincePainted.start();
    connect(&Activities::global(), &Activities::changed, this, [this](bool blocks) {
        const QString before = m_label.text();
        refresh();
        // What comes next may keep the event loop waiting, which otherwise paints.
        if (m_label.text() != before && (blocks || m_sincePainted.hasExpired(seenMs))) {
            m_label.repaint();
            m_sincePainted.start();
        }
    });
}

void StatusLine::follow(const Connection& connection, const ScpiSession& session)
{
    connect(&connection, &Connection::failed, this, &StatusLine::showFailure);
    connect(&connection, &Connection::lost, this, &StatusLine::showLoss);
    connect(&connection, &Connection::attemptStarted, this, &StatusLine::forgetFailure);
    connect(&connection, &Connection::attemptStarted, this, &StatusLine::forgetInstrument);
    connect(&connection, &Connection::ready, this, &StatusLine::forgetFault);
    connect(&connection, &Connection::disconnected, this, &StatusLine::forgetInstrument);
    connect(&connection, &Connection::statusMessage, this, &StatusLine::showInstrumentMessage);
    connect(&session, &ScpiSession::errorReported, this,
            [this](const InstrumentError& error) { showInstrumentMessage(errorWords(error)); });
}

void StatusLine::showMessage(const QString& message)
{
    m_message = message;
    m_isOfInstrument = false;
    m_messageTimer.stop();
    refresh();
}

void StatusLine::forgetMessage(const QString& message)
{
    if (m_message == message)
        showMessage(QString());
}

void StatusLine::showInstrumentMessage(const QString& message)
{
    showMessage(message);
    m_isOfInstrument = true;
}

void StatusLine::addInstrumentMessage(const QString& message)
{
    const bool isAlone = !m_isOfInstrument || m_message.isEmpty();
    showInstrumentMessage(isAlone ? message : m_message + separator + message);
}

void StatusLine::forgetInstrument()
{
    if (m_isOfInstrument)
        showMessage(QString());
}

void StatusLine::showFailure(const StatusWords& reason)
{
    showFault(reason, false);
}

void StatusLine::showLoss(const StatusWords& reason)
{
    showFault(reason, true);
}

void StatusLine::showFault(const StatusWords& reason, bool isLoss)
{
    m_fault = reason;
    m_isLoss = isLoss;
    m_faultTimer.start();
    refresh();
}

void StatusLine::forgetFailure()
{
    if (!m_isLoss)
        forgetFault();
}

void StatusLine::forgetFault()
{
    m_fault = nullptr;
    m_faultTimer.stop();
    refresh();
}

QString StatusLine::activityText() const
{
    QStringList texts = Activities::global().texts();
    while (texts.size() > mostActivities)
        texts.removeAt(1);
    if (!texts.isEmpty() && m_isLoss)
        texts << faultText();
    texts.removeAll(QString());
    return texts.join(separator);
}

void StatusLine::refresh()
{
    const QString activity = activityText();
    const bool isMessage = activity.isEmpty() && !m_message.isEmpty() && !m_faultTimer.isActive();
    // It has its full time once it is seen.
    if (!isMessage)
        m_messageTimer.stop();
    else if (!m_messageTimer.isActive())
        m_messageTimer.start();
    const QString text = isMessage ? m_message : activity.isEmpty() ? faultText() : activity;
    m_label.setProperty("warning", activity.isEmpty() && !text.isEmpty());
    m_label.setText(text);
}
