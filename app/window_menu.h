#pragma once

#include <QMenu>

class QAction;
class QActionGroup;

/// The window's menu: Help, About, language, theme and Quit. Says what was chosen; does nothing.
class WindowMenu : public QMenu
{
    Q_OBJECT

public:
    /// `languageCode` and `themeName` are the ones in force ("system", "light" or "dark").
    WindowMenu(const QString& languageCode, const QString& themeName, QWidget* parent);

signals:
    void helpChosen();
    void aboutChosen();
    void languageChosen(const QString& code);
    void themeChosen(const QString& name);
    void simulatorChosen(bool isOn);
    void quitChosen();

protected:
    void changeEvent(QEvent* event) override;

private:
    QAction* addChoice(QMenu* menu, QActionGroup* group, const QString& value,
                       const QString& current);
    void retranslate();

    QAction* m_help;
    QAction* m_about;
    QAction* m_simulator;
    QMenu* m_languages;
    QMenu* m_themes;
    QAction* m_quit;
};
