#include "log/command_entry.h"

#include <QKeyEvent>
#include <QSettings>

#include <limits>

namespace
{
constexpr int mostRemembered = 100;
const QString historyKey = QStringLiteral("Log/history");
} // namespace

CommandEntry::CommandEntry(QSettings& settings, QWidget* parent)
    : QLineEdit(parent), m_settings(settings), m_history(settings.value(historyKey).toStringList()),
      m_place(m_history.size())
{
    setObjectName(QStringLiteral("log_send"));
    // What is too long is refused whole when it is sent; a paste cut short would be sent cut short.
    setMaxLength(std::numeric_limits<int>::max());
}

void CommandEntry::remember(const QString& command)
{
    m_history.removeAll(command);
    m_history << command;
    while (m_history.size() > mostRemembered)
        m_history.removeFirst();
    m_place = m_history.size();
    m_settings.setValue(historyKey, m_history);
}

void CommandEntry::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up)
        recall(m_place - 1);
    else if (event->key() == Qt::Key_Down)
        recall(m_place + 1);
    else
        QLineEdit::keyPressEvent(event);
}

void CommandEntry::recall(int place)
{
    if (place < 0 || place > m_history.size())
        return;
    if (m_place == m_history.size())
        m_typed = text();
    m_place = place;
    setText(place < m_history.size() ? m_history.at(place) : m_typed);
}
