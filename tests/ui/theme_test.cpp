#include "ui/resources.h"
#include "ui/theme.h"

#include <QLabel>
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

/// The colour that an icon is drawn in, at its most solid spot; its edges are let through.
QColor toneOf(const QImage& image)
{
    QColor tone(Qt::transparent);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() > tone.alpha())
                tone = pixel;
        }
    }
    return tone;
}

constexpr ThemeName themes[] = {ThemeName::Light, ThemeName::Dark};
} // namespace

class ThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { loadUiResources(); }

    void contrastIsReadable()
    {
        // A ground, and the words on it.
        const QMap<QString, QString> words = {{"body", "text muted accentText warning"},
                                              {"surface", "text muted accentText warning"},
                                              {"press", "text accentText"},
                                              {"tint", "text accentText"},
                                              {"fill", "onFill"},
                                              {"display", "figures displayMuted displayUnlit on "
                                                          "error"},
                                              {"displayKey", "figures displayMuted"},
                                              {"on", "onText"},
                                              {"error", "display"}};
        for (const ThemeName theme : themes) {
            const auto isReadable = [theme](const QString& colour, const QString& ground,
                                            double least) {
                const double ratio =
                    contrast(themeColour(theme, colour), themeColour(theme, ground));
                QVERIFY2(ratio >= least, qPrintable(colour + " on " + ground));
            };
            for (const QString& ground : words.keys()) {
                for (const QString& colour : words[ground].split(' '))
                    isReadable(colour, ground, 4.5);
            }
            // The mark of the focus, by which a control is found.
            for (const char* ground : {"body", "surface", "tint", "display"})
                isReadable("accent", ground, 3.0);
            applyTheme(*qApp, theme, false);
            const QLabel label("<a href=\"x\">link</a>");
            const QColor link = label.palette().color(QPalette::Link);
            for (const char* ground : {"body", "surface"})
                QVERIFY2(contrast(link, themeColour(theme, ground)) >= 4.5, ground);
        }
    }

    void iconsAreSeen()
    {
        // They bring their own ground.
        const QStringList whole = {"logotip", "header", "Int", "Int_ru", "Ext", "Ext_ru"};
        int seen = 0;
        for (const QString& file : QDir(":/images").entryList({"*.png"})) {
            const QString name = file.section('.', 0, 0).section('@', 0, 0);
            if (whole.contains(name))
                continue;
            const QColor tone = toneOf(QImage(":/images/" + file));
            for (const ThemeName theme : themes) {
                for (const char* ground : {"body", "surface", "press", "tint"}) {
                    QVERIFY2(contrast(tone, themeColour(theme, ground)) >= 3.0,
                             qPrintable(QString("%1 on %2").arg(file, ground)));
                }
            }
            ++seen;
        }
        QVERIFY(seen > 0);
    }

    void sheetIsResolved()
    {
        for (const ThemeName theme : themes) {
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
