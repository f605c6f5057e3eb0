#include "sweep/picture/run_words.h"

#include "fields/plot/time_scale.h"
#include "numbers/number_text.h"
#include "numbers/readable_quantity.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
constexpr double usPerSecond = 1e6;
constexpr double msPerSecond = 1e3;
constexpr double secondsPerMinute = 60.0;
constexpr int exactDecimals = 3;

struct Words {
    Q_DECLARE_TR_FUNCTIONS(RunWords)
};

QString durationText(double us)
{
    const double seconds = us / usPerSecond;
    return seconds < secondsPerMinute ? readableQuantity(seconds, Unit::Second)
                                      : clockText(seconds);
}

/// A sweep's start and stop, a list's lowest and highest value.
QString spanText(RunKind kind, const ValueCourse& values, Unit unit)
{
    if (values.isEmpty())
        return Words::tr("not readable");
    if (values.low == values.high)
        return readableQuantity(values.low, unit);
    const bool isSweep = kind == RunKind::Sweep;
    return Words::tr("%1 to %2")
        .arg(readableQuantity(isSweep ? values.first : values.low, unit),
             readableQuantity(isSweep ? values.last : values.high, unit));
}

QString countText(RunKind kind, int count)
{
    if (kind == RunKind::Sweep)
        return count == 1 ? Words::tr("Sweep of one point")
                          : Words::tr("Sweep of %n points", nullptr, count);
    return count == 1 ? Words::tr("List of one point")
                      : Words::tr("List of %n points", nullptr, count);
}

QString exactText(double value, Unit unit)
{
    if (std::isnan(value))
        return Words::tr("not readable");
    const QString number = trimZeros(fixedText(std::abs(value), exactDecimals));
    const QString sign = value < 0.0 ? QString(QChar(0x2212)) : QString();
    return sign + formatGrouped(number) + QLatin1Char(' ') +
           (unit == Unit::Second ? unitSymbol(unit, -6) : unitSymbol(unit));
}
} // namespace

QString runWords(RunKind kind, const RunPoints& points)
{
    if (points.isEmpty())
        return kind == RunKind::Sweep ? Words::tr("The sweep settings define no points")
                                      : Words::tr("The list has no points");
    return Words::tr("%1: %2, %3, %4 per pass")
        .arg(countText(kind, points.count()),
             spanText(kind, points.course(RunQuantity::Frequency), Unit::Hertz),
             spanText(kind, points.course(RunQuantity::Power), Unit::Dbm),
             durationText(points.totalUs()));
}

QString runSummary(const RunPoints& points)
{
    if (points.isEmpty())
        return QString();
    return Words::tr("Points: %1, %2 per pass")
        .arg(groupDigits(QString::number(points.count())), durationText(points.totalUs()));
}

QString pointWords(const RunPoints& points, int number)
{
    const RunPoint point = points.point(number);
    const QStringList lines = {Words::tr("Point %1 of %2, from %3 on")
                                   .arg(number)
                                   .arg(points.count())
                                   .arg(durationText(points.startUs(number))),
                               exactText(point.frequencyHz, Unit::Hertz),
                               exactText(point.powerDbm, Unit::Dbm),
                               exactText(point.dwellUs, Unit::Second)};
    return lines.join(QLatin1Char('\n'));
}

QString progressWords(double elapsedMs, double totalMs)
{
    const double totalSeconds = totalMs / msPerSecond;
    const double elapsedSeconds = elapsedMs / msPerSecond;
    if (totalSeconds >= secondsPerMinute)
        return Words::tr("%1 of %2").arg(clockText(elapsedSeconds), clockText(totalSeconds));
    // Seconds to a tenth, which is as often as one looks; anything shorter in whole units.
    const int power = totalSeconds >= 1.0 ? 0 : totalMs >= 1.0 ? -3 : -6;
    const QString elapsed = fixedText(elapsedSeconds * std::pow(10.0, -power), power == 0 ? 1 : 0);
    return Words::tr("%1 of %2")
        .arg(elapsed + QLatin1Char(' ') + unitSymbol(Unit::Second, power),
             readableQuantity(totalSeconds, Unit::Second));
}
