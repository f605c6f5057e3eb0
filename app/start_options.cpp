#include "app/start_options.h"

#include <QCommandLineParser>
#include <QCoreApplication>

StartOptions StartOptions::fromCommandLine()
{
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Work with the simulated instrument."));
    const QCommandLineOption visa(QStringLiteral("visa"),
                                  QStringLiteral("VISA library to use, by name or path."),
                                  QStringLiteral("LIBRARY"));
    const QCommandLineOption language(QStringLiteral("language"),
                                      QStringLiteral("Language of the panel: en or ru."),
                                      QStringLiteral("en|ru"));
    const QCommandLineOption profile(QStringLiteral("profile"),
                                     QStringLiteral("Profile to apply at start-up."),
                                     QStringLiteral("FILE"));
    const QCommandLineOption clean(QStringLiteral("clean"),
                                   QStringLiteral("Do not restore the last settings."));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Save a picture of the window once it has settled, then go on."),
        QStringLiteral("FILE"));

    const QCommandLineOption log(QStringLiteral("log"),
                                 QStringLiteral("Write the SCPI log to a file as it happens."),
                                 QStringLiteral("FILE"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Front panel for KLV RF signal generators."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({demo, visa, language, profile, clean, screenshot, log});
    parser.process(*QCoreApplication::instance());

    const QString chosenLanguage = parser.value(language);
    if (parser.isSet(language) && chosenLanguage != QLatin1String("en") &&
        chosenLanguage != QLatin1String("ru")) {
        qCritical("Unknown language \"%s\": en or ru.", qUtf8Printable(chosenLanguage));
        parser.showHelp(1);
    }
    return {parser.isSet(demo),  parser.value(visa),       chosenLanguage,   parser.value(profile),
            parser.isSet(clean), parser.value(screenshot), parser.value(log)};
}
