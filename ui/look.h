#pragma once

#include "ui/language.h"

class QSettings;

/// Language and theme of the program: as the settings say, which also keep what is chosen while it
/// runs. To be made before any window.
class Look
{
public:
    /// `languageCode`, where it is not empty, holds instead of the setting, and is not kept.
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
