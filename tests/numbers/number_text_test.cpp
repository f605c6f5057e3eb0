#include "numbers/number_text.h"
#include "tests/support/rows.h"

#include <QLocale>
#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <limits>

namespace
{
using TextFunction = QString (*)(const QString&);
constexpr double largest = std::numeric_limits<double>::max();
} // namespace
Q_DECLARE_METATYPE(TextFunction)

class NumberTextTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void text_data();
    void text();
    void number_data();
    void number();
    void wholeNumber_data();
    void wholeNumber();
    void truncation_data();
    void truncation();
    void writtenValues();
    void groupingOnlyAddsBlanks();
    void shortestTextReadsBack();
};

/// Nothing here may depend on the locale: the worst of them is on all the time.
void NumberTextTest::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

void NumberTextTest::text_data()
{
    testColumns<TextFunction, QString, QString>("function", "input", "expected");

    struct Row {
        TextFunction function;
        const char* input;
        const char* expected;
    };
    const Row rows[] = {
        {groupDigits, "", ""},
        {groupDigits, "123", "123"},
        {groupDigits, "1234", "1 234"},
        {groupDigits, "2 5 0 0", "2 500"},
        {groupDigits, "-123", "- 123"},
        {groupDigits, "-1234", "-1 234"},
        {groupDigits, "123456789012345678901234567890", "123 456 789 012 345 678 901 234 567 890"},

        {formatGrouped, "", ""},
        {formatGrouped, "1234567.891", "1 234 567.891"},
        {formatGrouped, "0.5.000", "0.5"},
        {formatGrouped, "1.2.3", "1.2"},
        {formatGrouped, "1234,5", "123 4,5"},

        {trimZeros, "", ""},
        {trimZeros, "12.500", "12.5"},
        {trimZeros, "100.000", "100"},
        {trimZeros, "0.0", "0"},
        {trimZeros, ".000", ""},

        {padTwoDecimals, "", ".00"},
        {padTwoDecimals, "12.5", "12.50"},
        {padTwoDecimals, "123.5", "123.5"},
        {padTwoDecimals, "5.", "5.0"},

        {parseUnitReply, "\n", ""},
        {parseUnitReply, "10 MHZ\n", "10000000"},
        {parseUnitReply, "1.23456789 GHZ", "1.23457e+09"},
        {parseUnitReply, "9007199254740993 KHZ", "9007199254740993000"},
        {parseUnitReply, "7 KHZGHZ", "7000"},
        {parseUnitReply, "5 HZ\n", "5 HZ"},
        {parseUnitReply, "10  MHZ\n", "10  MHZ"},
        {parseUnitReply, "x.y MHZ", "0"},

        {compactFrequency, "2 500 000 000", "2500 MHz"},
        {compactFrequency, "1 234 567 891", "1234.57 MHz"},
        {compactPower, "- 123", "-123 dBm"},
    };
    for (const Row& row : rows)
        QTest::addRow("%d: %s", static_cast<int>(&row - rows), row.input)
            << row.function << QString(row.input) << QString(row.expected);
}

void NumberTextTest::text()
{
    QFETCH(TextFunction, function);
    QFETCH(QString, input);
    QTEST(function(input), "expected");
}

void NumberTextTest::number_data()
{
    testColumns<QString, double>("input", "expected");

    testRow("empty", "", 0.0);
    testRow("grouped minus", "- 123", -123.0);
    testRow("grouped", "2 500 000 000.25", 2500000000.25);
    testRow("other white space", QString::fromUtf8("1\u00a0000\t\n"), 1000.0);
    testRow("exponent", "1e5", 1e5);
    testRow("comma", "2,5", 0.0);
    testRow("two points", "1.2.3", 0.0);
    testRow("nan", "nan", 0.0);
    testRow("too large", QString(400, '9'), largest);
    testRow("too large, negative", "-1e999", -largest);
    testRow("NUL", QString::fromLatin1("1\0002", 3), 0.0);
    testRow("long rubbish", QString(100000, 'x'), 0.0);
}

void NumberTextTest::number()
{
    QFETCH(QString, input);
    QFETCH(double, expected);
    QVERIFY(toNumber(input) == expected);
}

void NumberTextTest::wholeNumber_data()
{
    testColumns<QString, qint64>("input", "expected");

    testRow("empty", "", qint64(0));
    testRow("grouped", "- 123", qint64(-123));
    testRow("exponent", "1e5", qint64(0));
    testRow("beyond a double", "9007199254740993", qint64(9007199254740993));
    testRow("too large", QString(30, '9'), std::numeric_limits<qint64>::max());
    testRow("too small", "-99999999999999999999", std::numeric_limits<qint64>::min());
    testRow("long rubbish", QString(100000, '-'), qint64(0));
}

void NumberTextTest::wholeNumber()
{
    QFETCH(QString, input);
    QTEST(toWholeNumber(input), "expected");
}

void NumberTextTest::truncation_data()
{
    testColumns<double, qint64>("value", "expected");

    using Limits = std::numeric_limits<qint64>;
    testRow("up", 2.9, qint64(2));
    testRow("down", -2.9, qint64(-2));
    testRow("2^63", 9223372036854775808.0, Limits::max());
    testRow("-2^63", -9223372036854775808.0, Limits::min());
    testRow("largest", largest, Limits::max());
    testRow("infinity", -std::numeric_limits<double>::infinity(), Limits::min());
    testRow("nan", std::nan(""), qint64(0));
}

void NumberTextTest::truncation()
{
    QFETCH(double, value);
    QTEST(truncated(value), "expected");
}

void NumberTextTest::writtenValues()
{
    QCOMPARE(fixedText(2.5, 0), QString("3"));
    QCOMPARE(fixedText(-0.4, 0), QString("0"));
    QCOMPARE(fixedText(-0.04, 1), QString("0.0"));
    QCOMPARE(fixedText(1e22, 0), QString("10000000000000000000000"));
    QCOMPARE(shortestText(1e6), QString("1000000"));
    QCOMPARE(shortestText(0.000001), QString("0.000001"));
    QCOMPARE(secondsText("1 000"), QString("0.001"));
    QCOMPARE(secondsText("50"), QString("5e-05"));
}

void NumberTextTest::groupingOnlyAddsBlanks()
{
    QRandomGenerator random(20240501);
    for (int length = 0; length < 200; ++length) {
        QString digits;
        for (int i = 0; i < length; ++i)
            digits += QChar('0' + random.bounded(10));
        const QString grouped = groupDigits(digits);
        QCOMPARE(withoutBlanks(grouped), digits);
        QCOMPARE(groupDigits(grouped), grouped);
        QVERIFY(!grouped.startsWith(' ') && !grouped.endsWith(' '));
        for (const QString& group : grouped.split(' ').mid(1))
            QCOMPARE(group.size(), 3);
    }
}

void NumberTextTest::shortestTextReadsBack()
{
    QRandomGenerator random(7);
    for (int i = 0; i < 2000; ++i) {
        const double value =
            (random.generateDouble() - 0.5) * std::pow(10.0, random.bounded(-12, 20));
        const QString text = shortestText(value);
        QVERIFY(!text.contains('e'));
        QVERIFY(toNumber(text) == value);
        QVERIFY(toNumber(formatGrouped(text)) == value);
    }
}

QTEST_GUILESS_MAIN(NumberTextTest)
#include "number_text_test.moc"
