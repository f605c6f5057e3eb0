#include "ui/theme_choice.h"

#include <QGuiApplication>
#include <QPalette>

namespace
{
constexpr int midLightness = 128;

bool isSystemDark()
{
    // Once: the program's own theme replaces the palette.
    static const bool isDark =
        QGuiApplication::palette().color(QPalette::Window).lightness() < midLightness;
    return isDark;
}
} // namespace

ThemeName chosenTheme(const QString& setting)
{
    const bool isSystem = setting != QLatin1String("light") && setting != QLatin1String("dark");
    const bool isDark = isSystem ? isSystemDark() : setting == QLatin1String("dark");
    return isDark ? ThemeName::Dark : ThemeName::Light;
}
