#pragma once

#include <QString>
#include <QVector>

#include <functional>
#include <limits>

/// One point of a run. What cannot be read is NaN.
struct RunPoint {
    double frequencyHz = std::numeric_limits<double>::quiet_NaN();
    double powerDbm = std::numeric_limits<double>::quiet_NaN();
    double dwellUs = 0.0;
};

enum class RunQuantity { Frequency, Power };

/// The texts of the sweep's fields as they stand.
struct SweepTexts {
    bool isPowerSweep = false;
    QString fixedValue;
    QString start;
    QString stop;
    QString points;
    QString dwellUs;
};

/// The texts of a row of the list as they stand.
struct RowTexts {
    QString frequencyHz;
    QString powerDbm;
    QString dwellUs;
};

/// Point numbers from first to last; none when last is below first.
struct PointRange {
    int first = 1;
    int last = 0;
    bool isEmpty() const { return last < first; }
};

/// A quantity over some points: the first value, the extremes and the last one. NaN
/// values do not count; `isEmpty` when there is no other.
struct ValueCourse {
    double first = std::numeric_limits<double>::quiet_NaN();
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    double last = std::numeric_limits<double>::quiet_NaN();
    bool isEmpty() const { return high < low; }
};

/// The points of one pass of a run in their order and when each of them is reached, as a value. It
/// reads no widget. Points are numbered from 1, times count from the start of the pass.
class RunPoints
{
public:
    RunPoints() = default;

    /// Linear from start to stop. A text that is not a number, or a number of points that is not
    /// whole, below 1 or above 1 000 000 000, gives no points.
    static RunPoints ofSweep(const SweepTexts& texts);
    /// Empty cells hold what is sent in their place: 1 kHz, `powerFieldText`, 1 ms.
    static RunPoints ofTable(int rowCount, const std::function<RowTexts(int row)>& rowTexts,
                             const QString& powerFieldText);

    bool isEmpty() const { return m_count == 0; }
    int count() const { return m_count; }
    /// `number` from 1 to count().
    RunPoint point(int number) const;

    double totalUs() const;
    /// When a point is reached; count() + 1 stands for the end.
    double startUs(int number) const;
    /// The point at a time, the last one from the end on; 0 when there are none.
    int pointAt(double elapsedUs) const;
    /// The points that lie at least partly between two times, points without duration included.
    PointRange pointsBetween(double fromUs, double toUs) const;

    ValueCourse course(RunQuantity quantity, PointRange range) const;
    ValueCourse course(RunQuantity quantity) const { return course(quantity, {1, m_count}); }

    /// The first point that cannot be run as it stands: unreadable, or without a frequency or a
    /// dwell above zero. 0 when there is none.
    int firstWrong() const { return m_firstWrong; }

private:
    void append(const RunPoint& point);
    int firstWrongOfSweep() const;

    // A sweep is computed from its ends, however many points it has; a list is kept.
    bool m_isSweep = false;
    int m_count = 0;
    int m_firstWrong = 0;
    RunPoint m_first;
    RunPoint m_last;
    QVector<RunPoint> m_list;
    QVector<double> m_endsUs;
};
