#include "sweep/picture/run_points.h"

#include "numbers/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <system_error>

namespace
{
constexpr double emptyFrequencyHz = 1000.0;
constexpr double emptyDwellUs = 1000.0;
constexpr int largestSweep = 1000000000;
// Far beyond any instrument, and safe for computing and drawing.
constexpr double largestNumber = 1e15;
constexpr double notReadable = std::numeric_limits<double>::quiet_NaN();

/// The number a text stands for as toNumber() reads it, without the cost of three hundred thousand
/// strings for a long list. NaN when it is none.
double readNumber(const QString& text)
{
    constexpr std::size_t longestText = 64;
    std::array<char, longestText> digits{};
    std::size_t length = 0;
    for (const QChar c : text) {
        if (c.isSpace() || (length == 0 && c == QLatin1Char('+')))
            continue;
        if (length == longestText || c.unicode() > 0x7f)
            return notReadable;
        digits[length++] = c.toLatin1();
    }
    double value = notReadable;
    const char* end = digits.data() + length;
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    const bool isNumber = error == std::errc() && stop == end;
    return isNumber && std::abs(value) <= largestNumber ? value : notReadable;
}

double readCell(const QString& text, double valueWhenEmpty)
{
    const bool isEmpty = std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    return isEmpty ? valueWhenEmpty : readNumber(text);
}

/// A dwell that cannot run takes no time.
double durationUs(const RunPoint& point)
{
    return point.dwellUs > 0.0 ? point.dwellUs : 0.0;
}

bool isWrong(const RunPoint& point)
{
    return !(point.frequencyHz > 0.0) || !(point.dwellUs > 0.0) || std::isnan(point.powerDbm);
}

double valueOf(const RunPoint& point, RunQuantity quantity)
{
    return quantity == RunQuantity::Frequency ? point.frequencyHz : point.powerDbm;
}

double between(double first, double last, double part)
{
    return first + (last - first) * part;
}

void add(ValueCourse& course, double value)
{
    if (std::isnan(value))
        return;
    if (course.isEmpty())
        course.first = value;
    course.low = std::min(course.low, value);
    course.high = std::max(course.high, value);
    course.last = value;
}
} // namespace

RunPoints RunPoints::ofSweep(const SweepTexts& texts)
{
    const double fixedValue = readNumber(texts.fixedValue);
    const double start = readNumber(texts.start);
    const double stop = readNumber(texts.stop);
    const double dwellUs = readNumber(texts.dwellUs);
    const qint64 count = toWholeNumber(texts.points);
    RunPoints result;
    const bool isReadable =
        !std::isnan(fixedValue) && !std::isnan(start) && !std::isnan(stop) && !std::isnan(dwellUs);
    if (!isReadable || count < 1 || count > largestSweep)
        return result;
    const auto at = [&](double value) {
        return texts.isPowerSweep ? RunPoint{fixedValue, value, dwellUs}
                                  : RunPoint{value, fixedValue, dwellUs};
    };
    result.m_isSweep = true;
    result.m_count = static_cast<int>(count);
    result.m_first = at(start);
    result.m_last = count == 1 ? result.m_first : at(stop);
    result.m_firstWrong = result.firstWrongOfSweep();
    return result;
}

int RunPoints::firstWrongOfSweep() const
{
    if (isWrong(m_first))
        return 1;
    if (!isWrong(m_last))
        return 0;
    // The value passes through zero on its way.
    int right = 1;
    int wrong = m_count;
    while (wrong - right > 1) {
        const int middle = right + (wrong - right) / 2;
        (isWrong(point(middle)) ? wrong : right) = middle;
    }
    return wrong;
}

RunPoints RunPoints::ofTable(int rowCount, const std::function<RowTexts(int row)>& rowTexts,
                             const QString& powerFieldText)
{
    const double emptyPowerDbm = readNumber(powerFieldText);
    RunPoints result;
    result.m_list.reserve(rowCount);
    result.m_endsUs.reserve(rowCount);
    for (int row = 0; row < rowCount; ++row) {
        const RowTexts texts = rowTexts(row);
        result.append({readCell(texts.frequencyHz, emptyFrequencyHz),
                       readCell(texts.powerDbm, emptyPowerDbm),
                       readCell(texts.dwellUs, emptyDwellUs)});
    }
    return result;
}

void RunPoints::append(const RunPoint& point)
{
    const double startedUs = totalUs();
    ++m_count;
    m_list.append(point);
    m_endsUs.append(startedUs + durationUs(point));
    if (m_firstWrong == 0 && isWrong(point))
        m_firstWrong = m_count;
}

RunPoint RunPoints::point(int number) const
{
    if (!m_isSweep)
        return m_list.at(number - 1);
    if (number == 1 || m_count == 1)
        return m_first;
    const double part = static_cast<double>(number - 1) / static_cast<double>(m_count - 1);
    return {between(m_first.frequencyHz, m_last.frequencyHz, part),
            between(m_first.powerDbm, m_last.powerDbm, part), m_first.dwellUs};
}

double RunPoints::totalUs() const
{
    return startUs(m_count + 1);
}

double RunPoints::startUs(int number) const
{
    if (m_isSweep)
        return durationUs(m_first) * static_cast<double>(number - 1);
    return number < 2 ? 0.0 : m_endsUs.at(number - 2);
}

int RunPoints::pointAt(double elapsedUs) const
{
    if (isEmpty())
        return 0;
    if (!(elapsedUs < totalUs()))
        return m_count;
    if (!m_isSweep) {
        const auto* end = std::upper_bound(m_endsUs.begin(), m_endsUs.end(), elapsedUs);
        return static_cast<int>(std::distance(m_endsUs.begin(), end)) + 1;
    }
    const double passed = std::floor(std::max(elapsedUs, 0.0) / durationUs(m_first));
    const int number = std::min(static_cast<int>(passed) + 1, m_count);
    // The division may fall short of a point that has just been reached.
    return number < m_count && startUs(number + 1) <= elapsedUs ? number + 1 : number;
}

PointRange RunPoints::pointsBetween(double fromUs, double toUs) const
{
    if (isEmpty() || fromUs > totalUs() || toUs < 0.0)
        return {};
    if (m_isSweep)
        return totalUs() > 0.0 ? PointRange{pointAt(fromUs), pointAt(toUs)}
                               : PointRange{1, m_count};
    const auto* first = std::lower_bound(m_endsUs.begin(), m_endsUs.end(), fromUs);
    const auto* last = std::upper_bound(first, m_endsUs.end(), toUs);
    const auto number = [this](const double* end) {
        return static_cast<int>(std::distance(m_endsUs.begin(), end)) + 1;
    };
    return {number(first), std::min(number(last), m_count)};
}

ValueCourse RunPoints::course(RunQuantity quantity, PointRange range) const
{
    ValueCourse result;
    if (m_isSweep && !range.isEmpty()) {
        add(result, valueOf(point(range.first), quantity));
        add(result, valueOf(point(range.last), quantity));
        return result;
    }
    for (int number = range.first; number <= range.last; ++number)
        add(result, valueOf(m_list.at(number - 1), quantity));
    return result;
}
