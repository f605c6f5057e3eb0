#include "ui/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace
{
const QString russianCode = QStringLiteral("ru");
const QString englishCode = QStringLiteral("en");
bool isRussianChosen = false;

bool isRussianMeant(const QString& code)
{
    if (code == russianCode || code == englishCode)
        return code == russianCode;
    return QLocale::system().language() == QLocale::Russian;
}
} // namespace

Language::Language(const QString& code)
{
    choose(code);
}

Language::~Language()
{
    QCoreApplication::removeTranslator(&m_texts);
    QCoreApplication::removeTranslator(&m_qtTexts);
}

void Language::choose(const QString& code)
{
    isRussianChosen = isRussianMeant(code);
    QCoreApplication::removeTranslator(&m_texts);
    QCoreApplication::removeTranslator(&m_qtTexts);
    if (!isRussianChosen)
        return;
    if (m_qtTexts.load(QStringLiteral("qtbase_ru"),
                       QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qtTexts);
    if (m_texts.load(QStringLiteral(":/translations/klv_ru.qm")))
        QCoreApplication::installTranslator(&m_texts);
}

QString Language::code() const
{
    return isRussianChosen ? russianCode : englishCode;
}

bool Language::isRussian()
{
    return isRussianChosen;
}
