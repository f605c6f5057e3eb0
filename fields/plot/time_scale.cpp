#include "fields/plot/time_scale.h"

#include "numbers/number_text.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
constexpr double mostInSeconds = 120.0;
constexpr double minute = 60.0;
constexpr double day = 86400.0;
constexpr double steps[] = {1,   2,   5,    10,   15,   20,   30,    60,    120,   300,
                            600, 900, 1200, 1800, 3600, 7200, 10800, 21600, 43200, day};

bool isWhole(double number)
{
    constexpr double rounding = 1e-6;
    return std::abs(number - std::round(number)) < rounding;
}

double stepFor(double span, int mostMajor)
{
    const double least = span / std::max(mostMajor, 1);
    const double* fitting = std::lower_bound(std::begin(steps), std::end(steps), least);
    return fitting != std::end(steps) ? *fitting : std::ceil(least / day) * day;
}
} // namespace

bool isInMinutes(double longestSeconds)
{
    return longestSeconds > mostInSeconds;
}

QString clockText(double seconds)
{
    const qint64 whole = truncated(seconds);
    return QStringLiteral("%1:%2:%3")
        .arg(whole / 3600)
        .arg(whole / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(whole % 60, 2, 10, QLatin1Char('0'));
}

QString minutesText(double seconds, double stepSeconds)
{
    const auto word = [](const char* text) { return QCoreApplication::translate("Unit", text); };
    if (isWhole(seconds / minute) && isWhole(stepSeconds / minute)) {
        const qint64 minutes = truncated(std::round(seconds / minute));
        QStringList parts;
        if (minutes >= 60)
            parts << QString::number(minutes / 60) + QLatin1Char(' ') +
                         word(QT_TRANSLATE_NOOP("Unit", "h"));
        if (minutes % 60 != 0)
            parts << QString::number(minutes % 60) + QLatin1Char(' ') +
                         word(QT_TRANSLATE_NOOP("Unit", "min"));
        return parts.isEmpty() ? QStringLiteral("0") : parts.join(QLatin1Char(' '));
    }
    const int decimals =
        stepSeconds < 1.0 ? static_cast<int>(std::ceil(-std::log10(stepSeconds))) : 0;
    const double rounded = toNumber(fixedText(seconds, decimals));
    const QString fraction = fixedText(rounded - std::floor(rounded), decimals).mid(1);
    return clockText(rounded) + fraction;
}

QwtScaleDiv TimeScaleEngine::divideScale(double from, double to, int mostMajor, int mostMinor,
                                         double step) const
{
    const double chosen = stepFor(to - from, mostMajor);
    // Within a second, tenths and hundredths are as good as anywhere.
    if (!isInMinutes(to) || (to - from) < mostMajor)
        return QwtLinearScaleEngine::divideScale(from, to, mostMajor, mostMinor, step);
    QList<double> ticks;
    for (double tick = std::ceil(from / chosen) * chosen; tick <= to; tick += chosen)
        ticks << tick;
    return QwtScaleDiv(from, to, {}, {}, ticks);
}
