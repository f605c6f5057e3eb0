#include "sweep/list_file.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>

namespace
{
constexpr int longestLine = 4096;
constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

struct ParsedLine {
    PointRow row;
    ListFileError error = ListFileError::None;
    QString strangeField;
};

bool isNumberCharacter(QChar c)
{
    static const QLatin1String others("+-.eE");
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || others.contains(c) ||
           c.category() == QChar::Separator_Space;
}

bool isNumberOrEmpty(const QString& field)
{
    const auto isBlank = [](QChar c) { return c.category() == QChar::Separator_Space; };
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    return std::all_of(field.begin(), field.end(), isNumberCharacter) &&
           (std::any_of(field.begin(), field.end(), isDigit) ||
            std::all_of(field.begin(), field.end(), isBlank));
}

/// A line without its line feed. Separators are single bytes in UTF-8, so that only the fields
/// need be decoded.
ParsedLine parsedLine(const QByteArray& line)
{
    ParsedLine parsed;
    const bool hasDecimalComma = line.contains(';');
    const char separator = hasDecimalComma ? ';' : ',';
    int begin = 0;
    for (QString& field : parsed.row) {
        const int found = line.indexOf(separator, begin);
        const int end = found < 0 ? line.size() : found;
        field = QString::fromUtf8(line.constData() + begin, end - begin);
        if (hasDecimalComma)
            field.replace(QLatin1Char(','), QLatin1Char('.'));
        if (!isNumberOrEmpty(field)) {
            const bool isText =
                !field.contains(QChar::ReplacementCharacter) && !field.contains(QChar(0));
            parsed.error = isText ? ListFileError::NoNumber : ListFileError::NotText;
            parsed.strangeField = field;
            break;
        }
        if (found < 0)
            break;
        begin = found + 1;
    }
    return parsed;
}

bool isBlankLine(const QByteArray& line)
{
    return std::all_of(line.begin(), line.end(), [](char c) { return c == ' ' || c == '\t'; });
}
} // namespace

QByteArray listText(const PointRows& points)
{
    QByteArray text;
    for (const PointRow& row : points) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (column > 0)
                text += ',';
            text += row[column].toUtf8();
        }
        text += '\n';
    }
    return text;
}

ReadList readListFile(const QString& path)
{
    ReadList read;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        read.error = ListFileError::NotOpened;
        read.detail = file.errorString();
        return read;
    }
    const auto failed = [&read](ListFileError error, const QString& detail) {
        read.rows.clear();
        read.error = error;
        read.detail = detail;
        return read;
    };
    while (!file.atEnd()) {
        QByteArray line = file.readLine(longestLine);
        ++read.line;
        if (line.isEmpty())
            break;
        if (read.line > mostListLines)
            return failed(ListFileError::TooManyLines, QString());
        if (line.endsWith('\n'))
            line.chop(1);
        else if (line.size() == longestLine)
            return failed(ListFileError::NotText, QString());
        if (line.endsWith('\r'))
            line.chop(1);
        if (read.line == 1 && line.startsWith(byteOrderMark))
            line.remove(0, static_cast<int>(qstrlen(byteOrderMark)));
        if (isBlankLine(line))
            continue;
        ParsedLine parsed = parsedLine(line);
        if (parsed.error != ListFileError::None)
            return failed(parsed.error, parsed.strangeField);
        read.rows.push_back(std::move(parsed.row));
    }
    if (file.error() != QFileDevice::NoError)
        return failed(ListFileError::NotRead, file.errorString());
    return read;
}

QString writeListFile(const QString& path, const PointRows& points)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    file.write(listText(points));
    return file.commit() ? QString() : file.errorString();
}
