#pragma once

#include <QColor>
#include <QString>

class QApplication;

enum class ThemeName { Light, Dark };

/// The colour that the style sheet names with a leading "@"; an unknown name gives an invalid
/// colour.
QColor themeColour(ThemeName theme, const QString& name);

/// The panel's style sheet in the theme's colours. With `russianImages`, each image that has a
/// "_ru.png" counterpart is replaced by it.
QString styleSheet(ThemeName theme, bool russianImages);

/// Gives the whole program its font, palette and style sheet, and updates widgets when a dynamic
/// property that the sheet uses changes ("connected", "lit", "edited", "warning", "unlocked",
/// "hint"):
/// setting such a property is all that an owner has to do. To be called before windows are created;
/// a later call changes theme or language.
void applyTheme(QApplication& application, ThemeName theme, bool russianImages);
