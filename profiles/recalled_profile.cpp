#include "profiles/recalled_profile.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

#include <algorithm>

RecalledProfile::RecalledProfile(const ProfileStore& store, const FieldText& fieldText,
                                 QObject* parent)
    : QObject(parent), m_store(store), m_fieldText(fieldText)
{
    // Of many changes in one go only the last counts, and the field it happens in has to be done.
    m_look.setSingleShot(true);
    m_look.setInterval(0);
    connect(&m_look, &QTimer::timeout, this, [this] {
        const bool differs = !m_isComplete || !isAsHeld();
        if (differs == m_differs)
            return;
        m_differs = differs;
        emit changed();
    });
}

template <typename Control, typename Signal>
void RecalledProfile::followControls(Signal signal)
{
    for (const QWidget* panel : m_store.panels()) {
        for (Control* control : m_store.controls<Control>(*panel)) {
            connect(control, signal, this, &RecalledProfile::look);
            const QPointer<Control> guarded = control;
            m_parts.push_back(
                {[this, guarded] { return guarded ? entryText(*guarded, m_fieldText) : QString(); },
                 QString()});
        }
    }
}

/// Only once there is something to compare with: the panels are complete by then.
void RecalledProfile::follow()
{
    followControls<QAbstractButton>(&QAbstractButton::toggled);
    followControls<QLineEdit>(&QLineEdit::textChanged);
    followControls<QComboBox>(&QComboBox::currentTextChanged);
    for (const QWidget* panel : m_store.panels()) {
        // A commit changes what a field holds without changing what it shows.
        for (const QLineEdit* field : m_store.controls<QLineEdit>(*panel))
            connect(field, &QLineEdit::editingFinished, this, &RecalledProfile::look);
    }
    for (const SharedVariable& variable : m_store.variables()) {
        if (variable.isSetting)
            m_parts.push_back({[&variable] { return entryText(variable); }, QString()});
    }
}

void RecalledProfile::take(const QString& path, bool isComplete)
{
    if (m_parts.empty())
        follow();
    m_look.stop();
    for (Part& part : m_parts)
        part.held = part.text();
    m_path = path;
    m_isComplete = isComplete;
    m_differs = !isComplete;
    emit changed();
}

void RecalledProfile::moved(const QString& path, const QString& newPath)
{
    if (path == m_path)
        m_path = newPath;
}

void RecalledProfile::forget(const QString& path)
{
    if (path != m_path)
        return;
    m_path.clear();
    m_differs = false;
    emit changed();
}

void RecalledProfile::look()
{
    if (!m_path.isEmpty())
        m_look.start();
}

bool RecalledProfile::isAsHeld() const
{
    return m_path.isEmpty() || std::all_of(m_parts.begin(), m_parts.end(), [](const Part& part) {
               return part.text() == part.held;
           });
}
