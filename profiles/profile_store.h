#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

/// A program variable that a profile holds in addition to the panels' controls.
struct SharedVariable {
    /// In the order of their codes in the file.
    enum class Type { Text, Double, Int32, Int64 };

    QString name;
    Type type;
    std::function<QVariant()> value;
    std::function<void(const QVariant&)> setValue;
    /// Otherwise a habit of the hand, such as a step size.
    bool isSetting = true;
};

/// What a profile consists of: which panels with which of their controls, which variables, and
/// after which buttons its replay waits. Owns none of the widgets and writes no file.
class ProfileStore
{
public:
    /// `documentName` names the document and its root element.
    explicit ProfileStore(const QString& documentName);

    /// Entries are written and replayed in the order in which they were added.
    void addPanel(QWidget* panel);
    /// The controls of a part of the panel that stands elsewhere; they come last.
    void addPart(QWidget* panel, QWidget* part);
    void addVariable(const SharedVariable& variable);
    /// Neither writes nor replays a control, nor, if it is a panel, anything in it.
    void exclude(QWidget* control);
    /// In file and replay `control` comes right behind `earlier`, on which its bounds depend.
    void putBehind(QWidget* earlier, QWidget* control);
    /// Buttons whose click starts something that takes time.
    void waitAfter(const QStringList& buttonNames, int waitMs);

    const QString& documentName() const { return m_documentName; }
    /// Of the element that holds the name of the profile.
    QString nameElement() const;
    static QString variablesElement();

    QVector<QWidget*> panels() const;
    QWidget* panelNamed(const QString& name) const;
    const std::vector<SharedVariable>& variables() const { return m_variables; }
    bool waitsAfter(const QString& buttonName) const { return m_waitNames.contains(buttonName); }
    int waitMs() const { return m_waitMs; }

    /// The controls of this kind that a profile holds of a panel, in the order they were made, but
    /// for what was put behind another. Controls in another registered panel, in another window or
    /// inside a control are not its own.
    template <typename Control>
    QVector<Control*> controls(const QWidget& panel) const
    {
        QVector<Control*> found;
        QStringList names;
        for (QWidget* widget : ownWidgets(panel)) {
            auto* control = qobject_cast<Control*>(widget);
            if (!control || !isWritable(*widget) || names.contains(widget->objectName()))
                continue;
            found << control;
            names << widget->objectName();
        }
        return found;
    }

    /// The control that the file's element of that name stands for; null if there is none.
    template <typename Control>
    Control* control(const QWidget& panel, const QString& objectName) const
    {
        for (QWidget* widget : ownWidgets(panel)) {
            auto* control = qobject_cast<Control*>(widget);
            if (control && control->objectName() == objectName && isWritable(*control))
                return control;
        }
        return nullptr;
    }

private:
    QVector<QWidget*> ownWidgets(const QWidget& panel) const;
    void collect(const QObject& parent, QVector<QWidget*>& found) const;
    bool isPart(const QWidget& widget) const;
    bool isWritable(const QWidget& control) const;

    QString m_documentName;
    std::vector<QPointer<QWidget>> m_panels;
    std::vector<std::pair<QWidget*, QPointer<QWidget>>> m_parts; ///< the panel is compared only
    std::vector<QPointer<QWidget>> m_excluded;
    std::vector<std::pair<QWidget*, QWidget*>> m_putBehind; ///< earlier, later; compared only
    std::vector<SharedVariable> m_variables;
    QStringList m_waitNames;
    int m_waitMs = 0;
};
