#include "numbers/field_kind.h"

#include "numbers/number_text.h"
#include "tests/numbers/text_pairs.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

Q_DECLARE_METATYPE(UnitFamily)
Q_DECLARE_METATYPE(FieldKind)

using K = FieldKind;

class FieldKindTest : public QObject
{
    Q_OBJECT

    static bool takes(FieldKind kind, const QString& text)
    {
        const QRegularExpression pattern('^' + patternText(entryPattern(kind)) + '$');
        return pattern.match(text).hasMatch();
    }

private slots:
    void typedCharacters_data()
    {
        testColumns<FieldKind, QString, QString>("kind", "admitted", "refused");
        testRow("frequency", K::Frequency, "0 9kmgKMG,.", "-es");
        testRow("power", K::Power, "09-", " .,k");
        testRow("time", K::Dwell, "0 9msMS.,", "-kg");
        testRow("voltage", K::LfAmplitude, "09mM,.", " -k");
        testRow("depth", K::AmDepth, "09,.", " -m");
        testRow("deviation", K::PmDeviation, "09,.", " -m");
        testRow("points", K::PointCount, "0 9", ".,-k");
        testRow("duty", K::Duty, "09", " .,-k");
    }

    void typedCharacters()
    {
        QFETCH(FieldKind, kind);
        QFETCH(QString, admitted);
        QFETCH(QString, refused);
        QVERIFY(takes(kind, admitted));
        for (const QChar c : refused)
            QVERIFY2(!takes(kind, c), qPrintable(QString(c)));
    }

    void unitKeys_data()
    {
        testColumns<UnitFamily, QString, QString>("family", "input", "expected");
        pairRows("frequency",
                 {"=", ".=.", ",=.", "1.=1.", "1 000=1000", "2.5G=2500000000", "2,5 g=2500000000",
                  "0.1k=100", ".5M=500000", "1.23450k=1234.5", "k=", "-k=-", "1.2.3G=1.2.3",
                  "2.5 GHz=2500000000", "25k00=25000",
                  "123456789012345678901234567890k=123456789012345678901234567890000"},
                 UnitFamily::Frequency);
        pairRows("time", {"1.5m=1500", "2S=2000000", "10 ms=10000"}, UnitFamily::Time);
        pairRows("voltage", {"1234.5M=1.2345", "-7m=-0.007"}, UnitFamily::Voltage);
        pairRows("none", {"5m,5=5m.5"}, UnitFamily::None);
    }

    void unitKeys()
    {
        QFETCH(UnitFamily, family);
        QFETCH(QString, input);
        QTEST(convertUnitKeys(input, family), "expected");
    }

    void reply_data()
    {
        testColumns<FieldKind, QString, QString>("kind", "input", "expected");
        pairRows("frequency", {"=", "10 MHZ\n=10 000 000", "rubbish=0"}, K::Frequency);
        pairRows("power", {"-1.2300E+02\n=-123", "-0.4=0", "-5.5=-6"}, K::Power);
        pairRows("reference",
                 {"10\n=10", "10000000.000000\n=10", "1.3E7 HZ=13", "10000 kHz=10", "100000=0",
                  "99999=99999", "5 lightyears=5"},
                 K::ExternalReference);
        pairRows("period",
                 {"1000\n=1 000", "0.001 S\n=1 000", "1.0E-3 S=1 000", "4.35 MS=4 350", "E S=0"},
                 K::PulsePeriod);
        pairRows("width", {"1=1.00", "12.5\n=12.50", "250 NS=0.25"}, K::PulseWidth);
        pairRows("rate", {"2.5 KHZ=2 500"}, K::ModulationRate);
        pairRows("depth", {"30=30.00"}, K::AmDepth);
        pairRows("deviation", {"0.0015625=0.0015625"}, K::FmDeviation);
        pairRows("phase", {"0.001=0.001"}, K::PmDeviation);
        pairRows("LF", {"10000=10 000.0"}, K::LfFrequency);
        pairRows("amplitude", {"1=1.000", "0.70711=0.70711"}, K::LfAmplitude);
        pairRows("points", {"1000=1 000"}, K::PointCount);
    }

    void reply()
    {
        QFETCH(FieldKind, kind);
        QFETCH(QString, input);
        QTEST(displayText(input, kind), "expected");
    }

    void onlyNumbersAreValues()
    {
        for (const char* number : {"0", "-0.000\n", "0 HZ", "0E+00\n", ".5", "25 MHZ", "1e-9"})
            QVERIFY2(replyHasNumber(number, K::ModulationRate), number);
        for (const char* other : {"", "\n", ".", "0x0", "rubbish", "12abc", "0,0", "-"})
            QVERIFY2(!replyHasNumber(other, K::ModulationRate), other);
        QVERIFY(replyHasNumber("0.0 S", K::PulsePeriod) && !replyHasNumber("E S", K::PulsePeriod));
    }

    void clamp_data()
    {
        testColumns<FieldKind, double, double, QString, QString>("kind", "min", "max", "input",
                                                                 "expected");
        pairRows("frequency",
                 {"2.5G=2 500 000 000", "25 000 000 000=20 000 000 000", "1=9 000", "9000.5=9 001",
                  "-=9 000", "1e999=20 000 000 000", "="},
                 K::Frequency, 9e3, 2e10);
        pairRows("no limits known", {"25G=25 000 000 000"}, K::Frequency, 0.0, 0.0);
        pairRows("limits crossed", {"5=50"}, K::Duty, 50.0, 10.0);
        pairRows("zero as minimum", {"-1=0.00"}, K::AmDepth, 0.0, 100.0);
        pairRows("zero as maximum", {"5=0"}, K::Power, -120.0, 0.0);
        pairRows("power", {"- 123=-120", "-5.5=-5.5", "20=13.125"}, K::Power, -120.0, 13.125);
        pairRows("limit finer than the kind", {"0=0.0000004"}, K::PmDeviation, 0.0000004, 10.0);
        pairRows("seconds", {"1s=1 000 000"}, K::PulsePeriod, 0.0, 2e7);
    }

    void clamp()
    {
        QFETCH(FieldKind, kind);
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(QString, input);
        QTEST(clampText(input, min, max, kind), "expected");
    }

    /// What a field shows is accepted by its own pattern, and neither committing it again nor
    /// reading it as a reply changes it.
    void acceptedTextsStayAsTheyAre()
    {
        QRandomGenerator random(3);
        for (int i = 0; i < fieldKindCount * 200; ++i) {
            const auto kind = static_cast<FieldKind>(i % fieldKindCount);
            const double value = random.bounded(900) + random.bounded(10) / 8.0;
            const QString shown = displayText(QString::number(value, 'f', 6), kind);
            QVERIFY2(takes(kind, shown), qPrintable(shown));
            QCOMPARE(clampText(shown, 0, 0, kind), shown);
            QCOMPARE(displayText(withoutBlanks(shown), kind), shown);
            QCOMPARE(fieldText(toNumber(shown), kind), shown);
        }
    }
};

QTEST_GUILESS_MAIN(FieldKindTest)
#include "field_kind_test.moc"
