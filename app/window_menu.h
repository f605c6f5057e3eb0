#pragma once

#include <QMenu>

#include <optional>

class QAction;
class QActionGroup;

/// The window's menu: Help, About, language, theme, what guards the power, and Quit. Says what was
/// chosen; does nothing.
class WindowMenu : public QMenu
{
    Q_OBJECT

public:
    /// `languageCode` and `themeName` are the ones in force ("system", "light" or "dark"),
    /// `jumpDb` is the largest rise in dB that is not asked about.
    WindowMenu(const QString& languageCode, const QString& themeName, int jumpDb, QWidget* parent);

    /// Names the highest level that is in force, in dBm.
    void showCeiling(std::optional<int> ceilingDbm);

signals:
    void helpChosen();
    void aboutChosen();
    void languageChosen(const QString& code);
    void themeChosen(const QString& name);
    void simulatorChosen(bool isOn);
    void jumpChosen(int jumpDb);
    void ceilingWanted();
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
    QMenu* m_jumps;
    QAction* m_ceiling;
    std::optional<int> m_ceilingDbm;
    QAction* m_quit;
};
