#include "numbers/number_text.h"
#include "tests/numbers/text_pairs.h"

#include <QLocale>
#include <QTest>

#include <cmath>
#include <limits>

using TextFunction = QString (*)(const QString&);
Q_DECLARE_METATYPE(TextFunction)

class NumberTextTest : public QObject
{
    Q_OBJECT

private slots:
    /// Nothing here may depend on the locale: the worst of them is on all the time.
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    void text_data()
    {
        testColumns<TextFunction, QString, QString>("function", "input", "expected");
        const auto rows = [](const char* name, TextFunction function, const QStringList& pairs) {
            pairRows(name, pairs, function);
        };
        rows("group", groupDigits,
             {"=", "123=123", "1234=1 234", "2 5 0 0=2 500", "-123=- 123", "-1234=-1 234",
              "123456789012345678901234567890=123 456 789 012 345 678 901 234 567 890"});
        rows("group before the point", formatGrouped,
             {"=", "1234567.891=1 234 567.891", "0.5.000=0.5", "1.2.3=1.2", "1234,5=123 4,5"});
        rows("trim", trimZeros, {"=", "12.500=12.5", "100.000=100", "0.0=0", ".000="});
        rows("pad", padTwoDecimals, {"=.00", "12.5=12.50", "123.5=123.5", "5.=5.0"});
        rows("reply", parseUnitReply,
             {"\n=", "10 MHZ\n=10000000", "1.23456789 GHZ=1.23457e+09",
              "9007199254740993 KHZ=9007199254740993000", "7 KHZGHZ=7000", "5 HZ\n=5 HZ",
              "10  MHZ\n=10  MHZ", "x.y MHZ=0"});
        rows("seconds", secondsText, {"1 000=0.001", "50=5e-05"});
    }

    void text()
    {
        QFETCH(TextFunction, function);
        QFETCH(QString, input);
        QTEST(function(input), "expected");
    }

    void number_data()
    {
        testColumns<QString, QString>("input", "expected");
        pairRows("read", {"=0", "- 123=-123", "2 500 000 000.25=2500000000.25",
                          "1\u00a0000\t\n=1000", "1e5=100000"});
        pairRows("no number", {"2,5=0", "1.2.3=0", "nan=0"});
        pairRows("too large", {"1e999=1.7976931348623157e308", "-1e999=-1.7976931348623157e308"});
    }

    void number()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        const double number = toNumber(input);
        QVERIFY2(number == expected.toDouble(), qPrintable(QString::number(number, 'g', 17)));
    }

    void wholeNumber_data()
    {
        testColumns<QString, QString>("input", "expected");
        pairRows("read", {"=0", "- 123=-123", "9007199254740993=9007199254740993"});
        pairRows("no whole number", {"1e5=0", "2.5=0", "--=0"});
        pairRows("too large", {"999999999999999999999=9223372036854775807",
                               "-99999999999999999999=-9223372036854775808"});
    }

    void wholeNumber()
    {
        QFETCH(QString, input);
        QTEST(QString::number(toWholeNumber(input)), "expected");
    }

    void values()
    {
        using Limits = std::numeric_limits<qint64>;
        QCOMPARE(truncated(2.9), qint64(2));
        QCOMPARE(truncated(-2.9), qint64(-2));
        QCOMPARE(truncated(9223372036854775808.0), Limits::max());
        QCOMPARE(truncated(-std::numeric_limits<double>::infinity()), Limits::min());
        QCOMPARE(truncated(std::nan("")), qint64(0));
        QCOMPARE(fixedText(2.5, 0), QString("3"));
        QCOMPARE(fixedText(-0.04, 1), QString("0.0"));
        QCOMPARE(fixedText(1e22, 0), QString("10000000000000000000000"));
        QCOMPARE(shortestText(1e6), QString("1000000"));
        QCOMPARE(shortestText(0.000001), QString("0.000001"));
    }
};

QTEST_GUILESS_MAIN(NumberTextTest)
#include "number_text_test.moc"
