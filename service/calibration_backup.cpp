#include "service/calibration_backup.h"

#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

namespace
{
/// Of the largest table that an instrument can have.
constexpr qint64 largestBackup = qint64{4} * 1024 * 1024;
const QString suffix = QStringLiteral(".csv");
} // namespace

QString backupPrefix(const QString& serial)
{
    static const QRegularExpression unfit(QStringLiteral("[^A-Za-z0-9_-]"));
    return QStringLiteral("calibration ") + QString(serial).replace(unfit, QStringLiteral("_"));
}

QString newBackupPath(const QString& folder, const QString& serial, const QDateTime& time)
{
    const QString path = folder + QLatin1Char('/') + backupPrefix(serial) +
                         time.toString(QStringLiteral(" yyyy-MM-dd hh-mm-ss"));
    QString free = path + suffix;
    for (int number = 2; QFileInfo::exists(free); ++number)
        free = QStringLiteral("%1 (%2)%3").arg(path).arg(number).arg(suffix);
    return free;
}

QByteArray backupText(const CalibrationPoints& points)
{
    QByteArray text;
    for (const CalibrationPoint& point : points)
        text += point.frequencyHz.toUtf8() + ',' + point.value.toUtf8() + '\n';
    return text;
}

ReadBackup readBackup(const QString& path, FileProgress* progress)
{
    static const QRegularExpression pointLine(QStringLiteral("^([0-9]*)[,;]([+-]?[0-9]+|)$"));
    const FileBytes bytes = readWholeFile(path, largestBackup, progress);
    ReadBackup read{bytes, {}, 0};
    const QStringList lines = QString::fromUtf8(bytes.bytes).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        const QRegularExpressionMatch match = pointLine.match(line);
        if (match.hasMatch()) {
            read.points.push_back({match.captured(1), match.captured(2)});
        } else if (!line.isEmpty()) {
            read.points.clear();
            read.strangeLine = i + 1;
            break;
        }
    }
    if (read.points.empty() && read.strangeLine == 0)
        read.strangeLine = 1;
    return read;
}
