#include "numbers/field_kind.h"

#include "numbers/number_text.h"
#include "tests/support/rows.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

Q_DECLARE_METATYPE(UnitFamily)
Q_DECLARE_METATYPE(FieldKind)

class FieldKindTest : public QObject
{
    Q_OBJECT

private slots:
    void unitKeys_data();
    void unitKeys();
    void unitKeysAgreeWithArithmetic();
    void reply_data();
    void reply();
    void clamp_data();
    void clamp();
    void conversions_data();
    void conversions();
    void acceptedTextsStayAsTheyAre();
};

void FieldKindTest::unitKeys_data()
{
    testColumns<UnitFamily, QString, QString>("family", "input", "expected");

    struct Row {
        UnitFamily family;
        QString input;
        QString expected;
    };
    const UnitFamily hertz = UnitFamily::Frequency;
    const UnitFamily time = UnitFamily::Time;
    const UnitFamily volts = UnitFamily::Voltage;
    const Row rows[] = {
        {hertz, "", ""},
        {hertz, ".", "."},
        {hertz, ",", "."},
        {hertz, "1.", "1."},
        {hertz, "1 000", "1000"},
        {hertz, "2.5G", "2500000000"},
        {hertz, "2,5 g", "2500000000"},
        {hertz, "0.1k", "100"},
        {hertz, ".5M", "500000"},
        {hertz, "1.23450k", "1234.5"},
        {hertz, "123456789012345678901234567890k", "123456789012345678901234567890000"},
        {hertz, "k", ""},
        {hertz, "-k", "-"},
        {hertz, "1.2.3G", "1.2.3"},
        {hertz, "2.5 GHz", "2500000000"},
        {hertz, "25k00", "25000"},
        {time, "1.5m", "1500"},
        {time, "2S", "2000000"},
        {time, "10 ms", "10000"},
        {volts, "1234.5M", "1.2345"},
        {volts, "-7m", "-0.007"},
        {UnitFamily::None, "5m,5", "5m.5"},
        {hertz, QString::fromLatin1("1\0k", 3), QString::fromLatin1("1\0", 2)},
        {hertz, QString(50000, '1') + "k", QString(50000, '1') + "000"},
    };
    for (const Row& row : rows)
        QTest::addRow("%d: %s", static_cast<int>(&row - rows), qPrintable(row.input.left(40)))
            << row.family << row.input << row.expected;
}

void FieldKindTest::unitKeys()
{
    QFETCH(UnitFamily, family);
    QFETCH(QString, input);
    QTEST(convertUnitKeys(input, family), "expected");
}

void FieldKindTest::unitKeysAgreeWithArithmetic()
{
    QRandomGenerator random(11);
    for (int i = 0; i < 1000; ++i) {
        const qint64 thousandths = random.bounded(1000000000);
        const QString typed = fixedText(static_cast<double>(thousandths) / 1000, 3);
        QCOMPARE(convertUnitKeys(typed + "k", UnitFamily::Frequency), QString::number(thousandths));
        QCOMPARE(convertUnitKeys(QString::number(thousandths) + "m", UnitFamily::Voltage),
                 trimZeros(typed));
    }
}

void FieldKindTest::reply_data()
{
    testColumns<FieldKind, QString, QString>("kind", "input", "expected");

    struct Row {
        FieldKind kind;
        QString input;
        QString expected;
    };
    using K = FieldKind;
    const Row rows[] = {
        {K::Frequency, "10 MHZ\n", "10 000 000"},
        {K::Frequency, "rubbish", "0"},
        {K::Power, "-1.2300E+02\n", "-123"},
        {K::Power, "-0.4", "0"},
        {K::Power, "-5.5", "-6"},
        {K::ExternalReference, "10\n", "10"},
        {K::ExternalReference, "10000000.000000\n", "10"},
        {K::PulsePeriod, "1000\n", "1 000"},
        {K::PulsePeriod, "0.001 S\n", "1 000"},
        {K::PulseWidth, "1", "1.00"},
        {K::PulseWidth, "250 NS", "0.25"},
        {K::ModulationRate, "2.5 KHZ", "2 500"},
        {K::AmDepth, "30", "30.00"},
        {K::FmDeviation, "0.0015625", "0.0015625"},
        {K::PmDeviation, "0.001", "0.001"},
        {K::LfFrequency, "10000", "10 000.0"},
        {K::LfAmplitude, "1", "1.000"},
        {K::LfAmplitude, "0.70711", "0.70711"},
        {K::PointCount, "1000", "1 000"},
        {K::Frequency, "", ""},
        {K::Power, QString(70000, 'x'), "0"},
    };
    for (const Row& row : rows)
        QTest::addRow("%d: %s", static_cast<int>(&row - rows), qPrintable(row.input.left(40)))
            << row.kind << row.input << row.expected;
}

void FieldKindTest::reply()
{
    QFETCH(FieldKind, kind);
    QFETCH(QString, input);
    QTEST(displayText(input, kind), "expected");
}

void FieldKindTest::clamp_data()
{
    testColumns<FieldKind, QString, double, double, QString>("kind", "input", "min", "max",
                                                             "expected");

    using K = FieldKind;
    const struct {
        const char* name;
        FieldKind kind;
        QString input;
        double min;
        double max;
        const char* expected;
    } rows[] = {
        {"inside", K::Frequency, "2.5G", 9e3, 2e10, "2 500 000 000"},
        {"above", K::Frequency, "25 000 000 000", 9e3, 2e10, "20 000 000 000"},
        {"below", K::Frequency, "1", 9e3, 2e10, "9 000"},
        {"rounded", K::Frequency, "9000.5", 9e3, 2e10, "9 001"},
        {"no number", K::Frequency, "-", 9e3, 2e10, "9 000"},
        {"too large a number", K::Frequency, QString(400, '9'), 9e3, 2e10, "20 000 000 000"},
        {"empty", K::Frequency, "", 9e3, 2e10, ""},
        {"no limits known", K::Frequency, "25G", 0.0, 0.0, "25 000 000 000"},
        {"limits crossed", K::Duty, "5", 50.0, 10.0, "50"},
        {"zero as minimum", K::AmDepth, "-1", 0.0, 100.0, "0.00"},
        {"zero as maximum", K::Power, "5", -120.0, 0.0, "0"},
        {"grouped minus", K::Power, "- 123", -120.0, 13.5, "-120"},
        {"decimal power", K::Power, "-5.5", -120.0, 13.5, "-5.5"},
        {"fractional limit", K::Power, "20", -120.0, 13.125, "13.125"},
        {"limit finer than the kind", K::PmDeviation, "0", 0.0000004, 10.0, "0.0000004"},
        {"seconds", K::PulsePeriod, "1s", 0.0, 2e7, "1 000 000"},
    };
    for (const auto& row : rows)
        testRow(row.name, row.kind, row.input, row.min, row.max, QString(row.expected));
}

void FieldKindTest::clamp()
{
    QFETCH(FieldKind, kind);
    QFETCH(QString, input);
    QFETCH(double, min);
    QFETCH(double, max);
    QTEST(clampText(input, min, max, kind), "expected");
}

void FieldKindTest::conversions_data()
{
    testColumns<bool, QString, double>("isTime", "reply", "expected");

    testRow("plain time", true, "12.5\n", 12.5);
    testRow("exponent with unit", true, "1.0E-3 S\n", 1000.0);
    testRow("milliseconds", true, "4.35 MS", 4350.0);
    testRow("rubbish time", true, "E S", 0.0);
    testRow("overlong exponent", true, "1e999999999999 S", 1.7976931348623157e308);
    testRow("hertz", false, "1.3E7 HZ", 13.0);
    testRow("kilohertz", false, "10000 kHz", 10.0);
    testRow("plain hertz", false, "100000", 0.1);
    testRow("plain megahertz", false, "99999", 99999.0);
    testRow("unknown word", false, "5 lightyears", 5.0);
}

void FieldKindTest::conversions()
{
    QFETCH(bool, isTime);
    QFETCH(QString, reply);
    QFETCH(double, expected);
    QVERIFY((isTime ? microsecondsFromReply(reply) : megahertzFromReply(reply)) == expected);
}

/// What a field shows is accepted by its own pattern, and neither committing it again nor reading
/// it as a reply changes it.
void FieldKindTest::acceptedTextsStayAsTheyAre()
{
    QRandomGenerator random(3);
    for (int i = 0; i < fieldKindCount; ++i) {
        const auto kind = static_cast<FieldKind>(i);
        const QRegularExpression pattern('^' + patternText(entryPattern(kind)) + '$');
        for (int n = 0; n < 200; ++n) {
            const double value = random.bounded(900) + random.bounded(10) / 8.0;
            const QString shown = displayText(QString::number(value, 'f', 6), kind);
            QVERIFY2(pattern.match(shown).hasMatch(), qPrintable(shown));
            QCOMPARE(clampText(shown, 0, 0, kind), shown);
            QCOMPARE(displayText(withoutBlanks(shown), kind), shown);
            QCOMPARE(fieldText(toNumber(shown), kind), shown);
        }
    }
}

QTEST_GUILESS_MAIN(FieldKindTest)
#include "field_kind_test.moc"
