#pragma once

#include "ui/language.h"

class QSettings;

/// Language and theme of the program: taken from the settings, which also store what is chosen
/// while it runs. To be created before any window.
class Look
{
public:
    /// `languageCode`, if not empty, overrides the setting, and is not saved.
    Look(QSettings& settings, const QString& languageCode);

    /// "en" or "ru".
    QString languageCode() const { return m_language.code(); }
    /// "light", "dark", or "system" (and anything else).
    QString themeName() const;

    void chooseLanguage(const QString& code);
    void chooseTheme(const QString& name);

private:
    void apply() const;

    QSettings& m_settings;
    Language m_language;
};
