#pragma once

#include <QMenu>

class DeviceLevel;
class Look;
class PowerGuard;
struct FieldContext;
class QAction;
class QActionGroup;
class Zoom;

/// The window's menu: Help, About, SCPI log, language, theme, zoom, power guard, level at the
/// device, and Quit. Sets look, zoom, guard and that level; for the rest it emits what was chosen.
class WindowMenu : public QMenu
{
    Q_OBJECT

public:
    /// Look, zoom, guard and level outlive the menu.
    WindowMenu(Look& look, Zoom& zoom, PowerGuard& guard, DeviceLevel& level,
               const FieldContext& context, QWidget* parent);

    /// Whether the simulated instrument is in use.
    void showSimulated(bool isSimulated);

signals:
    void helpChosen();
    void aboutChosen();
    void logChosen();
    void simulatorChosen(bool isOn);
    void quitChosen();

protected:
    void changeEvent(QEvent* event) override;

private:
    QAction* addChoice(QMenu* menu, QActionGroup* group, const QString& value,
                       const QString& current);
    void addLook();
    void addZoom();
    void zoom(int direction);
    void showZoom();
    void addPowerGuard();
    void addLevel();
    void askCeiling();
    void showCeiling();
    void askOffset();
    void showOffset();
    void retranslate();

    Look& m_look;
    Zoom& m_scale;
    PowerGuard& m_guard;
    DeviceLevel& m_level;
    const FieldContext& m_context;
    QAction* m_help;
    QAction* m_about;
    QAction* m_log;
    QAction* m_simulator;
    QMenu* m_languages;
    QMenu* m_themes;
    QMenu* m_zoom;
    QAction* m_zoomIn;
    QAction* m_zoomOut;
    QAction* m_zoomReset;
    QMenu* m_jumps;
    QAction* m_ceiling;
    QAction* m_offset;
    QMenu* m_readings;
    QAction* m_quit;
};
