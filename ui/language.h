#pragma once

#include <QString>
#include <QTranslator>

/// The language of the program: installs and removes the translation. Widgets are notified of a
/// change by QEvent::LanguageChange.
class Language
{
public:
    /// `code` "en" or "ru"; anything else is the system's language, English if it is neither.
    explicit Language(const QString& code);
    ~Language();

    void choose(const QString& code);

    QString code() const;

    /// Process-wide: whether the Russian variants of the images are used.
    static bool isRussian();

private:
    QTranslator m_texts;
    QTranslator m_qtTexts;
};
