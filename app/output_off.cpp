#include "app/output_off.h"

#include "app/output_display.h"
#include "connection/connection.h"
#include "link/notices.h"
#include "ui/state_button.h"

#include <QApplication>
#include <QKeyEvent>

OutputOff::OutputOff(StateButton& output, const OutputDisplay& display,
                     const Connection& connection, Notices& notices)
    : m_output(output), m_display(display), m_notices(notices)
{
    qApp->installEventFilter(this);
    connect(&output, &QAbstractButton::toggled, this, &OutputOff::followOutput);
    followOutput(output.isChecked());
    // The connect button is checked while there is a connection.
    connect(&connection, &Connection::buttonShouldBe, this,
            [this](bool isConnected) { m_isConnected = isConnected; });
}

/// A field that loses the focus to the click would commit its text, and that may take some time.
void OutputOff::followOutput(bool isOn)
{
    m_output.setFocusPolicy(isOn ? Qt::TabFocus : Qt::StrongFocus);
}

/// Before any shortcut: those belong to one window, and modal windows and popups keep them away.
bool OutputOff::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (!isOutputKey(key))
        return QObject::eventFilter(watched, event);
    // The rest of a press that has switched off must reach nothing else.
    if (event->type() == QEvent::KeyPress)
        return true;
    if (key.isAutoRepeat() || (!m_output.isChecked() && m_isConnected && !m_display.isDoubted()))
        return QObject::eventFilter(watched, event);
    event->accept();
    if (m_output.isChecked())
        m_output.click();
    else if (m_isConnected)
        emit offWanted();
    else
        m_notices.sayOfInstrument(
            [] { return tr("No instrument is connected: nothing was switched off"); });
    return true;
}

/// By the key's position where it types another letter, as on a Cyrillic keyboard.
bool OutputOff::isOutputKey(const QKeyEvent& key) const
{
    const int wanted = m_output.keys()[0];
    const int modifiers = static_cast<int>(key.modifiers() & ~Qt::KeypadModifier);
    if (modifiers != (wanted & static_cast<int>(Qt::KeyboardModifierMask)))
        return false;
    const int letter = wanted & ~static_cast<int>(Qt::KeyboardModifierMask);
    return key.key() == letter || key.nativeVirtualKey() == static_cast<quint32>(letter);
}
