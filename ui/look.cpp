#include "ui/look.h"

#include "ui/resources.h"
#include "ui/theme.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>

namespace
{
constexpr int midLightness = 128;
const QString languageKey = QStringLiteral("language");
const QString themeKey = QStringLiteral("theme");

bool isSystemDark()
{
    // Once: the program's own theme replaces the palette that it was started with.
    static const bool isDark =
        QGuiApplication::palette().color(QPalette::Window).lightness() < midLightness;
    return isDark;
}

ThemeName themeNamed(const QString& name)
{
    const bool isSystem = name != QLatin1String("light") && name != QLatin1String("dark");
    const bool isDark = isSystem ? isSystemDark() : name == QLatin1String("dark");
    return isDark ? ThemeName::Dark : ThemeName::Light;
}
} // namespace

Look::Look(QSettings& settings, const QString& languageCode)
    : m_settings(settings),
      m_language(languageCode.isEmpty() ? settings.value(languageKey).toString() : languageCode)
{
    loadUiResources();
    apply();
}

QString Look::themeName() const
{
    return m_settings.value(themeKey, QStringLiteral("system")).toString();
}

void Look::chooseLanguage(const QString& code)
{
    m_settings.setValue(languageKey, code);
    m_language.choose(code);
    apply();
}

void Look::chooseTheme(const QString& name)
{
    m_settings.setValue(themeKey, name);
    apply();
}

void Look::apply() const
{
    applyTheme(*qApp, themeNamed(themeName()), Language::isRussian());
}
