#include "service/calibration_text.h"
#include "tests/support/rows.h"

#include <QtTest>

/// What may be typed into a calibration point, and what an instrument may answer.
class CalibrationTextTest : public QObject
{
    Q_OBJECT

private slots:
    void frequencyBecomesWholeHertz_data();
    void frequencyBecomesWholeHertz();
    void valueIsWhole_data();
    void valueIsWhole();
    void replyBecomesNumbers_data();
    void replyBecomesNumbers();
};

void CalibrationTextTest::frequencyBecomesWholeHertz_data()
{
    testColumns<QString, QString>("typed", "hertz");
    const struct {
        const char* typed;
        const char* hertz;
    } rows[] = {
        {"1 000 000 000", "1000000000"},
        {"2.25 GHZ", "2250000000"},
        {"100 KHZ", "100000"},
        {"2,5 m", "2500000"},
        {"007 HZ", "7"},
        {"0", "0"},
        // No double holds these exactly after a multiplication.
        {"19.999999999 GHZ", "19999999999"},
        // Finer than one hertz.
        {"1.23456 KHZ", "1234"},
        {"19.9999999999 GHZ", "19999999999"},
        {"999999999999999", "999999999999999"},
        {"", ""},
        {"abc", ""},
        {"5 THZ", ""},
        {"1.5.2", ""},
        {"-5", ""},
        {"1000000000000000", ""},
        {"5;MEM:TABLE:SAVE", ""},
    };
    for (const auto& row : rows)
        testRow(row.typed, row.typed, row.hertz);
}

void CalibrationTextTest::frequencyBecomesWholeHertz()
{
    QFETCH(QString, typed);
    QFETCH(QString, hertz);
    QCOMPARE(wholeHertz(typed), hertz);
}

void CalibrationTextTest::valueIsWhole_data()
{
    testColumns<QString, QString>("typed", "value");
    const struct {
        const char* typed;
        const char* value;
    } rows[] = {{"7", "7"},        {" - 12 ", "-12"},          {"+3", "3"}, {"-0", "0"},
                {"1 000", "1000"}, {"999999999", "999999999"}, {"", ""},    {"2.5", ""},
                {"3 dB", ""},      {"1234567890", ""},         {"-", ""}};
    for (const auto& row : rows)
        testRow(row.typed, row.typed, row.value);
}

void CalibrationTextTest::valueIsWhole()
{
    QFETCH(QString, typed);
    QFETCH(QString, value);
    QCOMPARE(wholeValue(typed), value);
}

void CalibrationTextTest::replyBecomesNumbers_data()
{
    testColumns<QString, QString>("reply", "numbers");
    testRow("plain", "1000000000 -4 2000000000 3\n", "1000000000|-4|2000000000|3");
    testRow("many blanks", "  5   6 \r\n", "5|6");
    testRow("exponents and fractions", "+1.000000E+09 -3.000 2.6", "1000000000|-3|3");
    testRow("units, commas, quotes", "\"25000000Hz, -7dBm;\"", "25000000|-7");
    testRow("grouped by commas", "1,000,000", "1000000");
    testRow("no number among them", "5 ERROR 6", "5||6");
    testRow("nothing", "\n", "");
}

void CalibrationTextTest::replyBecomesNumbers()
{
    QFETCH(QString, reply);
    QFETCH(QString, numbers);
    QCOMPARE(wholeNumbersOfReply(reply).join('|'), numbers);
}

QTEST_GUILESS_MAIN(CalibrationTextTest)
#include "calibration_text_test.moc"
