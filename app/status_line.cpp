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
    m_messageTimer.start();
    refresh();
}

void StatusLine::showActivity(const QString& description)
{
    // What begins now is more worth reading than what was said before.
    if (!description.isEmpty())
        m_message.clear();
    m_activity = description;
    refresh();
}

void StatusLine::refresh()
{
    m_label.setProperty("warning", !m_message.isEmpty());
    m_label.setText(m_message.isEmpty() ? m_activity : m_message);
}
