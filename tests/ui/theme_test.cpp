#include "ui/theme.h"

#include "tests/support/rows.h"
#include "ui/resources.h"

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QRegularExpression>
#include <QtTest>

#include <cmath>

Q_DECLARE_METATYPE(ThemeName)

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

/// The colour that the drawing has most of, its soft edges aside.
QColor tone(const QString& image)
{
    const QImage pixels = QImage(image).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x)
            if (qAlpha(pixels.pixel(x, y)) == 255)
                return pixels.pixelColor(x, y);
    return QColor();
}
} // namespace

class ThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void contrastIsReadable_data()
    {
        testColumns<ThemeName, QString, QString>("theme", "ink", "ground");
        const QStringList pairs = {
            "text/body",        "text/surface",  "text/press",      "text/tint",
            "muted/body",       "muted/surface", "accentText/tint", "accentText/body",
            "accentText/press", "onFill/fill",   "figures/display", "displayMuted/display",
            "onText/on",        "on/display",    "display/error",   "warning/body",
        };
        for (const ThemeName theme : {ThemeName::Light, ThemeName::Dark})
            for (const QString& pair : pairs)
                QTest::addRow("%s %s", theme == ThemeName::Dark ? "dark" : "light",
                              qPrintable(pair))
                    << theme << pair.section('/', 0, 0) << pair.section('/', 1);
    }

    void contrastIsReadable()
    {
        QFETCH(ThemeName, theme);
        QFETCH(QString, ink);
        QFETCH(QString, ground);
        const double ratio = contrast(themeColour(theme, ink), themeColour(theme, ground));
        QVERIFY2(ratio >= 4.5, qPrintable(QString::number(ratio)));
    }

    void sheetIsResolved_data()
    {
        testColumns<ThemeName, bool>("theme", "russian");
        testRow("light English", ThemeName::Light, false);
        testRow("light Russian", ThemeName::Light, true);
        testRow("dark English", ThemeName::Dark, false);
        testRow("dark Russian", ThemeName::Dark, true);
    }

    void sheetIsResolved()
    {
        QFETCH(ThemeName, theme);
        QFETCH(bool, russian);
        const QString sheet = styleSheet(theme, russian);
        QVERIFY(!sheet.contains(QLatin1Char('@')));
        QVERIFY(sheet.contains(themeColour(theme, "display").name()));
        QCOMPARE(sheet.contains(":/images/Int_ru.png"), russian);
        QCOMPARE(sheet.contains(":/images/Ext_ru.png"), russian);
        QCOMPARE(sheet.contains(":/images/Int.png"), !russian);

        int images = 0;
        static const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
        for (auto found = url.globalMatch(sheet); found.hasNext(); ++images) {
            const QString image = found.next().captured(1);
            QVERIFY2(QFile::exists(image), qPrintable(image));
        }
        QVERIFY(images >= 4);
    }

    void imagesComeInTwoResolutions_data()
    {
        testColumns<QString>("name");
        for (const char* name : {"logotip",  "device", "header", "close",     "minimize", "menu",
                                 "Int",      "Int_ru", "Ext",    "Ext_ru",    "am",       "fm",
                                 "pm",       "pulse",  "square", "Sin",       "Saw_pos",  "Saw_neg",
                                 "triangle", "random", "dc",     "List_send", "grad"})
            testRow(name, QString(name));
    }

    void imagesComeInTwoResolutions()
    {
        QFETCH(QString, name);
        loadUiResources();
        const QImage once(":/images/" + name + ".png");
        const QImage twice(":/images/" + name + "@2x.png");
        QVERIFY(!once.isNull());
        QCOMPARE(twice.size(), once.size() * 2);
        QVERIFY(tone(":/images/" + name + "@2x.png").isValid());
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
        led.setProperty("connected", false);
        QVERIFY(centre() != accent);
    }
};

QTEST_MAIN(ThemeTest)
#include "theme_test.moc"
