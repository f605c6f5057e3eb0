#include "ui/theme.h"

#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QtTest>

#include <cmath>

namespace
{
/// Relative luminance and contrast as web accessibility guidelines define them.
double luminance(const QColor& colour)
{
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}
} // namespace

class ThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void contrastIsReadable()
    {
        const QStringList pairs = {
            "text/body",        "text/surface",  "text/press",      "text/tint",
            "muted/body",       "muted/surface", "accentText/tint", "accentText/body",
            "accentText/press", "onFill/fill",   "figures/display", "displayMuted/display",
            "onText/on",        "on/display",    "display/error",   "warning/body",
        };
        for (const ThemeName theme : {ThemeName::Light, ThemeName::Dark}) {
            for (const QString& pair : pairs) {
                const double ratio = contrast(themeColour(theme, pair.section('/', 0, 0)),
                                              themeColour(theme, pair.section('/', 1)));
                QVERIFY2(ratio >= 4.5, qPrintable(pair));
            }
        }
    }

    void sheetIsResolved()
    {
        for (const ThemeName theme : {ThemeName::Light, ThemeName::Dark}) {
            for (const bool isRussian : {false, true}) {
                const QString sheet = styleSheet(theme, isRussian);
                QVERIFY(!sheet.contains(QLatin1Char('@')));
                QVERIFY(sheet.contains(themeColour(theme, "display").name()));
                QCOMPARE(sheet.contains(":/images/Int_ru.png"), isRussian);
                QCOMPARE(sheet.contains(":/images/Int.png"), !isRussian);
                static const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
                for (auto found = url.globalMatch(sheet); found.hasNext();) {
                    const QString image = found.next().captured(1);
                    QVERIFY2(QFile::exists(image), qPrintable(image));
                }
            }
        }
    }

    void aStatePropertyShowsAtOnce()
    {
        applyTheme(*qApp, ThemeName::Light, false);
        QLabel led;
        led.setObjectName("led");
        led.setFixedSize(12, 12);
        led.setProperty("connected", false);
        led.show();
        const auto centre = [&led] { return led.grab().toImage().pixelColor(6, 6); };
        const QColor accent = themeColour(ThemeName::Light, "accent");
        QVERIFY(centre() != accent);
        led.setProperty("connected", true);
        QCOMPARE(centre(), accent);
    }
};

QTEST_MAIN(ThemeTest)
#include "theme_test.moc"
