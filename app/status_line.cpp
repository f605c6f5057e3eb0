#include "app/status_line.h"

#include <QLabel>
#include <QVariant>

namespace
{
constexpr int messageMs = 6000;
}

StatusLine::StatusLine(QLabel& label, QObject* parent) : QObject(parent), m_label(label)
{
    m_messageTimer.setSingleShot(true);
    m_messageTimer.setInterval(messageMs);
    connect(&m_messageTimer, &QTimer::timeout, this, [this] {
        m_message.clear();
        refresh();
    });
}

void StatusLine::showMessage(const QString& message)
{
    m_message = message;
    if (m_activity.isEmpty())
        m_messageTimer.start();
    refresh();
}

void StatusLine::showActivity(const QString& description)
{
    m_activity = description;
    // A message waits until what goes on is over, and then has its full time.
    if (description.isEmpty() && !m_message.isEmpty())
        m_messageTimer.start();
    refresh();
}

void StatusLine::refresh()
{
    const bool isMessage = m_activity.isEmpty() && !m_message.isEmpty();
    m_label.setProperty("warning", isMessage);
    m_label.setText(isMessage ? m_message : m_activity);
}
