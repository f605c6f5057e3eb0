#include "app/window_menu.h"

#include "app/device_level.h"
#include "app/level_offset.h"
#include "app/power_ceiling.h"
#include "fields/power_guard.h"
#include "numbers/number_text.h"
#include "ui/look.h"
#include "ui/zoom.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QEvent>

namespace
{
struct Choice {
    const char* value;
    const char* caption;
};

// A language is listed under its own name, whatever the language of the program.
const Choice languages[] = {{"en", "&English"}, {"ru", "&Русский"}};
const Choice themes[] = {{"system", QT_TRANSLATE_NOOP("WindowMenu", "As the &system")},
                         {"light", QT_TRANSLATE_NOOP("WindowMenu", "&Light")},
                         {"dark", QT_TRANSLATE_NOOP("WindowMenu", "&Dark")}};
/// In dB; 0 never asks.
const char* const jumps[] = {"0", "10", "20", "30"};
/// In the order of DeviceLevel::Reading.
const char* const readings[] = {
    QT_TRANSLATE_NOOP("WindowMenu", "N&one"), QT_TRANSLATE_NOOP("WindowMenu", "&V"),
    QT_TRANSLATE_NOOP("WindowMenu", "&mV"), QT_TRANSLATE_NOOP("WindowMenu", "&dBµV")};
} // namespace

WindowMenu::WindowMenu(Look& look, Zoom& zoom, PowerGuard& guard, DeviceLevel& level,
                       const FieldContext& context, QWidget* parent)
    : QMenu(parent), m_look(look), m_scale(zoom), m_guard(guard), m_level(level),
      m_context(context), m_help(addAction(QString(), this, &WindowMenu::helpChosen)),
      m_about(addAction(QString(), this, &WindowMenu::aboutChosen)),
      m_log(addAction(QString(), this, &WindowMenu::logChosen))
{
    setObjectName(QStringLiteral("menu"));
    m_help->setObjectName(QStringLiteral("actionHelp"));
    m_help->setShortcut(QKeySequence::HelpContents);
    m_about->setObjectName(QStringLiteral("actionAbout"));
    m_log->setObjectName(QStringLiteral("action_log"));
    m_log->setShortcut(Qt::CTRL + Qt::Key_L);

    addSeparator();
    m_simulator = addAction(QString());
    m_simulator->setObjectName(QStringLiteral("action_simulator"));
    m_simulator->setCheckable(true);
    connect(m_simulator, &QAction::triggered, this, &WindowMenu::simulatorChosen);

    addSeparator();
    addLook();
    addZoom();
    addSeparator();
    addPowerGuard();
    addLevel();
    addSeparator();
    m_quit = addAction(QString(), this, &WindowMenu::quitChosen);
    retranslate();
}

void WindowMenu::addLook()
{
    m_languages = addMenu(QString());
    auto* languageGroup = new QActionGroup(this);
    for (const Choice& language : languages) {
        addChoice(m_languages, languageGroup, QLatin1String(language.value), m_look.languageCode())
            ->setText(QString::fromUtf8(language.caption));
    }
    connect(languageGroup, &QActionGroup::triggered, this,
            [this](const QAction* action) { m_look.chooseLanguage(action->data().toString()); });

    m_themes = addMenu(QString());
    auto* themeGroup = new QActionGroup(this);
    for (const Choice& theme : themes)
        addChoice(m_themes, themeGroup, QLatin1String(theme.value), m_look.themeName());
    connect(themeGroup, &QActionGroup::triggered, this,
            [this](const QAction* action) { m_look.chooseTheme(action->data().toString()); });
}

void WindowMenu::addZoom()
{
    m_zoom = addMenu(QString());
    const auto add = [this](const char* name, int direction, const QList<QKeySequence>& keys) {
        QAction* action =
            m_zoom->addAction(QString(), this, [this, direction] { zoom(direction); });
        action->setObjectName(QLatin1String(name));
        action->setShortcuts(keys);
        return action;
    };
    // The key of the plus sign without Shift, too.
    m_zoomIn = add("action_zoom_in", 1, {Qt::CTRL + Qt::Key_Plus, Qt::CTRL + Qt::Key_Equal});
    m_zoomOut = add("action_zoom_out", -1, {Qt::CTRL + Qt::Key_Minus});
    m_zoomReset = add("action_zoom_reset", 0, {Qt::CTRL + Qt::Key_0});
}

/// 0: back to 100 %.
void WindowMenu::zoom(int direction)
{
    if (direction == 0)
        m_scale.reset();
    else
        m_scale.step(direction);
    showZoom();
}

void WindowMenu::showZoom()
{
    m_zoom->setTitle(tr("&Zoom") + QStringLiteral(": %1 %").arg(m_scale.percent()));
    m_zoomIn->setEnabled(m_scale.canStep(1));
    m_zoomOut->setEnabled(m_scale.canStep(-1));
}

void WindowMenu::addPowerGuard()
{
    m_jumps = addMenu(QString());
    auto* jumpGroup = new QActionGroup(this);
    for (const char* jump : jumps) {
        const QString value = QLatin1String(jump);
        addChoice(m_jumps, jumpGroup, value, QString::number(m_guard.jumpDb()))
            ->setObjectName(QStringLiteral("action_jump_") + value);
    }
    connect(jumpGroup, &QActionGroup::triggered, this,
            [this](const QAction* action) { m_guard.setJumpDb(action->data().toInt()); });
    m_ceiling = addAction(QString(), this, &WindowMenu::askCeiling);
    m_ceiling->setObjectName(QStringLiteral("action_ceiling"));
    connect(&m_guard, &PowerGuard::ceilingChanged, this, &WindowMenu::showCeiling);
}

void WindowMenu::askCeiling()
{
    auto* dialog = new PowerCeiling(m_guard.ceilingDbm(), m_context, parentWidget());
    connect(dialog, &PowerCeiling::chosen, &m_guard, [this](const QString& dbm) {
        m_guard.setCeilingDbm(dbm.isEmpty() ? std::nullopt : std::optional<int>(dbm.toInt()));
    });
    dialog->open();
}

void WindowMenu::addLevel()
{
    m_offset = addAction(QString(), this, &WindowMenu::askOffset);
    m_offset->setObjectName(QStringLiteral("action_offset"));
    connect(&m_level, &DeviceLevel::changed, this, &WindowMenu::showOffset);
    m_readings = addMenu(QString());
    auto* group = new QActionGroup(this);
    const QString present = QString::number(static_cast<int>(m_level.reading()));
    for (int index = 0; index < static_cast<int>(std::size(readings)); ++index) {
        const QString value = QString::number(index);
        addChoice(m_readings, group, value, present)
            ->setObjectName(QStringLiteral("action_reading_") + value);
    }
    connect(group, &QActionGroup::triggered, this, [this](const QAction* action) {
        m_level.setReading(static_cast<DeviceLevel::Reading>(action->data().toInt()));
    });
}

void WindowMenu::askOffset()
{
    auto* dialog = new LevelOffset(m_level.offsetDb(), parentWidget());
    connect(dialog, &LevelOffset::offsetChosen, &m_level, &DeviceLevel::setOffsetDb);
    dialog->open();
}

void WindowMenu::showSimulated(bool isSimulated)
{
    m_simulator->setChecked(isSimulated);
}

QAction* WindowMenu::addChoice(QMenu* menu, QActionGroup* group, const QString& value,
                               const QString& current)
{
    QAction* action = menu->addAction(QString());
    action->setData(value);
    action->setCheckable(true);
    action->setChecked(value == current);
    group->addAction(action);
    return action;
}

void WindowMenu::retranslate()
{
    m_help->setText(tr("&Help"));
    m_about->setText(tr("&About"));
    m_log->setText(tr("SCPI lo&g"));
    m_simulator->setText(tr("&Simulated instrument"));
    m_languages->setTitle(tr("&Language"));
    m_themes->setTitle(tr("&Theme"));
    m_zoomIn->setText(tr("&Larger"));
    m_zoomOut->setText(tr("&Smaller"));
    m_zoomReset->setText(tr("&Normal size"));
    showZoom();
    // The key belongs to the close button; the menu only shows it.
    const QString quitKey = QKeySequence(Qt::CTRL + Qt::Key_Q).toString(QKeySequence::NativeText);
    m_jumps->setTitle(tr("Ask before a step &up"));
    const QList<QAction*> jumpActions = m_jumps->actions();
    for (QAction* action : jumpActions) {
        const int jumpDb = action->data().toInt();
        action->setText(jumpDb > 0 ? tr("By more than %1 dB").arg(jumpDb) : tr("&Never"));
    }
    showCeiling();
    showOffset();
    m_readings->setTitle(tr("Level also &in"));
    const QList<QAction*> readingActions = m_readings->actions();
    for (int index = 0; index < readingActions.size(); ++index)
        readingActions.at(index)->setText(
            QCoreApplication::translate("WindowMenu", readings[index]));
    m_quit->setText(tr("&Quit") + QLatin1Char('\t') + quitKey);
    const QList<QAction*> themeActions = m_themes->actions();
    for (int index = 0; index < themeActions.size(); ++index)
        themeActions.at(index)->setText(
            QCoreApplication::translate("WindowMenu", themes[index].caption));
}

void WindowMenu::showCeiling()
{
    const std::optional<int> ceilingDbm = m_guard.ceilingDbm();
    m_ceiling->setText(ceilingDbm ? tr("Highest &power: %1 dBm...").arg(*ceilingDbm)
                                  : tr("Highest &power..."));
}

void WindowMenu::showOffset()
{
    const std::optional<double> offsetDb = m_level.offsetDb();
    m_offset->setText(offsetDb ? tr("Level at the &device: %1 dB...").arg(shortestText(*offsetDb))
                               : tr("Level at the &device..."));
}

void WindowMenu::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMenu::changeEvent(event);
}
