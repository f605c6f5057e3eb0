#include "sweep/list/list_file.h"

#include "numbers/number_text.h"
#include "numbers/quantity_text.h"

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <array>

namespace
{
constexpr int longestLine = 4096;
constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

struct ParsedLine {
    PointRow row;
    ListFileError error = ListFileError::None;
    QString strangeField;
};

/// Blanks of any kind, and tabs, as plain blanks.
QString withPlainBlanks(QString field)
{
    std::replace_if(
        field.begin(), field.end(),
        [](QChar c) { return c == QLatin1Char('\t') || c.category() == QChar::Separator_Space; },
        QLatin1Char(' '));
    return field;
}

bool isNumberOrEmpty(const QString& field)
{
    const auto isBlankOrDigit = [](QChar c) {
        return c == QLatin1Char(' ') || (c >= QLatin1Char('0') && c <= QLatin1Char('9'));
    };
    if (std::all_of(field.begin(), field.end(), isBlankOrDigit))
        return true;
    // Number parsing would skip a carriage return, which ends a line.
    const bool isPrinted = std::all_of(field.begin(), field.end(), [](QChar c) {
        return c >= QLatin1Char(' ') && c <= QLatin1Char('~');
    });
    return isPrinted && readsAsNumber(field);
}

/// A line without its line feed. Separators are single bytes in UTF-8, so that only the fields
/// need be decoded.
ParsedLine parsedLine(const char* begin, const char* end)
{
    ParsedLine parsed;
    const bool hasDecimalComma = std::find(begin, end, ';') != end;
    const char separator = hasDecimalComma ? ';' : ',';
    for (QString& field : parsed.row) {
        const char* fieldEnd = std::find(begin, end, separator);
        field = withPlainBlanks(QString::fromUtf8(begin, static_cast<int>(fieldEnd - begin)));
        if (hasDecimalComma)
            field.replace(QLatin1Char(','), QLatin1Char('.'));
        if (!isNumberOrEmpty(field)) {
            const bool isText =
                !field.contains(QChar::ReplacementCharacter) && !field.contains(QChar(0));
            parsed.error = isText ? ListFileError::NoNumber : ListFileError::NotText;
            parsed.strangeField = field;
            break;
        }
        if (field.size() > longestCell) {
            parsed.error = ListFileError::LongCell;
            break;
        }
        if (fieldEnd == end)
            break;
        begin = fieldEnd + 1;
    }
    return parsed;
}

/// The fields of a line that is text in which no field is a number; none of any other line.
QStringList headingFields(const char* begin, const char* end)
{
    const QString line = withPlainBlanks(QString::fromUtf8(begin, static_cast<int>(end - begin)));
    if (line.contains(QChar::ReplacementCharacter) || line.contains(QChar(0)))
        return {};
    const bool hasDecimalComma = line.contains(QLatin1Char(';'));
    QStringList fields = line.split(QLatin1Char(hasDecimalComma ? ';' : ','));
    fields.replaceInStrings(QStringLiteral(","), QStringLiteral("."));
    const bool hasNumber = std::any_of(fields.begin(), fields.end(), [](const QString& field) {
        return !field.trimmed().isEmpty() && isNumberOrEmpty(field);
    });
    return hasNumber ? QStringList() : fields;
}

/// The units of the columns, in powers of ten of the table's own.
using ColumnPowers = std::array<int, pointColumnCount>;

/// The heading that names a unit of another quantity; none, and the units, where all fit.
QString readHeading(const QStringList& fields, ColumnPowers& powers)
{
    const int count = std::min(fields.size(), pointColumnCount);
    for (int column = 0; column < count; ++column) {
        const HeadingUnit unit = headingUnit(fields.at(column), pointKind(column));
        if (unit.isForeign)
            return fields.at(column);
        powers[static_cast<std::size_t>(column)] = unit.powerOfTen;
    }
    return {};
}

/// Fields in the units of a heading as the table shows them; the field that cannot be converted.
QString convert(PointRow& row, const ColumnPowers& powers)
{
    for (int column = 0; column < pointColumnCount; ++column) {
        const int power = powers[static_cast<std::size_t>(column)];
        QString& field = row[static_cast<std::size_t>(column)];
        if (power == 0 || withoutBlanks(field).isEmpty())
            continue;
        const auto number = readQuantity(field, pointKind(column), power);
        const QString converted =
            number ? grouped(shiftedDecimal(*number, power), pointKind(column)) : QString();
        if (converted.isEmpty() || converted.size() > longestCell)
            return field;
        field = converted;
    }
    return {};
}

bool isBlankLine(const char* begin, const char* end)
{
    // Whatever is not ASCII may be a blank, too.
    const bool isPlain = std::none_of(begin, end, [](char c) { return c > ' ' && c <= '~'; });
    return isPlain && withPlainBlanks(QString::fromUtf8(begin, static_cast<int>(end - begin)))
                          .trimmed()
                          .isEmpty();
}

struct Heading {
    int line = 0;  ///< from 1; 0 for none
    QString words; ///< its first field
    ColumnPowers powers{};
};

/// Takes a line into the list, or as its heading.
void takeLine(ReadList& read, Heading& heading, const char* begin, const char* end)
{
    if (isBlankLine(begin, end))
        return;
    ParsedLine parsed = parsedLine(begin, end);
    const bool isFirst = read.rows.empty() && heading.line == 0;
    const QStringList fields = isFirst && parsed.error == ListFileError::NoNumber
                                   ? headingFields(begin, end)
                                   : QStringList();
    read.field = parsed.strangeField;
    if (!fields.isEmpty()) {
        heading = {read.line, parsed.strangeField, {}};
        read.field = readHeading(fields, heading.powers).trimmed();
        if (!read.field.isEmpty())
            read.error = ListFileError::ForeignUnit;
        return;
    }
    read.error = parsed.error;
    if (read.error != ListFileError::None)
        return;
    read.field = convert(parsed.row, heading.powers);
    if (read.field.isEmpty())
        read.rows.push_back(std::move(parsed.row));
    else
        read.error = ListFileError::NoNumber;
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

ReadList readListFile(const QString& path, FileProgress* progress)
{
    ReadList read;
    QFile file(path);
    const auto failed = [&read](ListFileError error, const QString& field = QString()) {
        read.rows.clear();
        read.error = error;
        read.field = field;
        return read;
    };
    read.file = openToRead(file, progress);
    if (read.file.fault != FileFault::None)
        return failed(ListFileError::NotOpened);
    std::array<char, longestLine + 1> line;
    Heading heading;
    for (;;) {
        const qint64 length = file.readLine(line.data(), line.size());
        if (length <= 0)
            break;
        if (++read.line > mostListLines)
            return failed(ListFileError::TooManyLines);
        if (progress) {
            progress->done += length;
            if (progress->isCancelled)
                return failed(ListFileError::Cancelled);
        }
        const char* begin = line.data();
        const char* end = begin + length;
        if (end[-1] == '\n')
            --end;
        else if (length == longestLine)
            return failed(ListFileError::NotText);
        if (end > begin && end[-1] == '\r')
            --end;
        if (read.line == 1 &&
            QByteArray::fromRawData(begin, static_cast<int>(end - begin)).startsWith(byteOrderMark))
            begin += qstrlen(byteOrderMark);
        takeLine(read, heading, begin, end);
        if (read.error != ListFileError::None)
            return failed(read.error, read.field);
    }
    if (file.error() != QFileDevice::NoError) {
        read.file = {FileFault::Failed, file.errorString()};
        return failed(ListFileError::NotRead);
    }
    read.hasHeading = heading.line > 0;
    read.isScaled = heading.powers != ColumnPowers{};
    // Words alone are no list.
    if (read.hasHeading && read.rows.empty()) {
        read.line = heading.line;
        return failed(ListFileError::NoNumber, heading.words);
    }
    return read;
}
