#include "profiles/profile_store.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>

#include <algorithm>

namespace
{
bool contains(const std::vector<QPointer<QWidget>>& widgets, const QWidget* widget)
{
    return std::find(widgets.begin(), widgets.end(), widget) != widgets.end();
}

/// The children of these are Qt's own: editors, drop-down lists, clear buttons.
bool isControl(const QWidget& widget)
{
    return qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget);
}
} // namespace

ProfileStore::ProfileStore(const QString& documentName) : m_documentName(documentName) {}

void ProfileStore::addPanel(QWidget* panel)
{
    m_panels.emplace_back(panel);
}

void ProfileStore::addPart(QWidget* panel, QWidget* part)
{
    m_parts.emplace_back(panel, part);
}

void ProfileStore::addVariable(const SharedVariable& variable)
{
    m_variables.push_back(variable);
}

void ProfileStore::exclude(QWidget* control)
{
    m_excluded.emplace_back(control);
}

void ProfileStore::putBehind(QWidget* earlier, QWidget* control)
{
    m_putBehind.emplace_back(earlier, control);
}

void ProfileStore::waitAfter(const QStringList& buttonNames, int waitMs)
{
    m_waitNames = buttonNames;
    m_waitMs = waitMs;
}

QString ProfileStore::nameElement() const
{
    return QStringLiteral("QUICK_Profile_") + m_documentName;
}

QString ProfileStore::variablesElement()
{
    return QStringLiteral("shared_variable");
}

QVector<QWidget*> ProfileStore::panels() const
{
    QVector<QWidget*> panels;
    for (const QPointer<QWidget>& panel : m_panels) {
        if (panel)
            panels << panel;
    }
    return panels;
}

QWidget* ProfileStore::panelNamed(const QString& name) const
{
    for (QWidget* panel : panels()) {
        if (panel->objectName() == name)
            return panel;
    }
    return nullptr;
}

QVector<QWidget*> ProfileStore::ownWidgets(const QWidget& panel) const
{
    QVector<QWidget*> found;
    collect(panel, found);
    for (const auto& [owner, part] : m_parts) {
        if (owner == &panel && part)
            collect(*part, found);
    }
    for (const auto& [earlier, later] : m_putBehind) {
        if (found.contains(earlier) && found.removeOne(later))
            found.insert(found.indexOf(earlier) + 1, later);
    }
    return found;
}

void ProfileStore::collect(const QObject& parent, QVector<QWidget*>& found) const
{
    for (QObject* child : parent.children()) {
        auto* widget = qobject_cast<QWidget*>(child);
        if (!widget || widget->isWindow() || contains(m_panels, widget) ||
            contains(m_excluded, widget) || isPart(*widget))
            continue;
        if (isControl(*widget))
            found << widget;
        else
            collect(*widget, found);
    }
}

bool ProfileStore::isPart(const QWidget& widget) const
{
    return std::any_of(m_parts.begin(), m_parts.end(),
                       [&](const auto& entry) { return entry.second == &widget; });
}

/// Whether the control has a state to write and a unique name that is valid for an element.
bool ProfileStore::isWritable(const QWidget& control) const
{
    static const QRegularExpression elementName(QStringLiteral("\\A[A-Za-z_]\\w*\\z"));
    const QString name = control.objectName();
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return (!button || button->isCheckable()) && elementName.match(name).hasMatch() &&
           !name.startsWith(QLatin1String("qt_")) && name != variablesElement() &&
           !panelNamed(name);
}
