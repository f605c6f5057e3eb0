#include "numbers/field_kind.h"

#include "numbers/number_text.h"
#include "tests/numbers/text_pairs.h"

#include <QLocale>
#include <QRandomGenerator>
#include <QRegularExpression>

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
    /// Nothing here may depend on the locale: the worst of them is on all the time.
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    void typedCharacters()
    {
        const struct {
            K kind;
            QString admitted;
            QString refused;
        } rows[] = {
            {K::Frequency, "0 9kmgKMG,.", "-es"}, {K::Power, "09-", " .,k"},
            {K::Dwell, "0 9msMS.,", "-kg"},       {K::LfAmplitude, "09mM,.", " -k"},
            {K::AmDepth, "09,.", " -m"},          {K::PmDeviation, "09,.", " -m"},
            {K::PointCount, "0 9", ".,-k"},       {K::Duty, "09", " .,-k"},
        };
        for (const auto& row : rows) {
            QVERIFY2(takes(row.kind, row.admitted), qPrintable(row.admitted));
            for (const QChar c : row.refused)
                QVERIFY2(!takes(row.kind, c), qPrintable(row.admitted + " and " + c));
        }
    }

    void unitKeys()
    {
        const auto check = [](UnitFamily family, const QStringList& pairs) {
            checkPairs(pairs, [=](const QString& text) { return convertUnitKeys(text, family); });
        };
        check(UnitFamily::Frequency,
              {"=", ".=.", ",=.", "1.=1.", "1 000=1000", "2.5G=2500000000", "2,5 g=2500000000",
               "0.1k=100", ".5M=500000", "1.23450k=1234.5", "k=", "-k=-", "1.2.3G=1.2.3",
               "2.5 GHz=2500000000", "25k00=25000",
               "123456789012345678901234567890k=123456789012345678901234567890000"});
        check(UnitFamily::Time, {"1.5m=1500", "2S=2000000", "10 ms=10000"});
        check(UnitFamily::Voltage, {"1234.5M=1.2345", "-7m=-0.007"});
        check(UnitFamily::None, {"5m,5=5m.5"});
    }

    void reply()
    {
        const auto check = [](K kind, const QStringList& pairs) {
            checkPairs(pairs, [kind](const QString& text) { return displayText(text, kind); });
        };
        check(K::Frequency,
              {"=", "10 MHZ\n=10 000 000", "1.23456789 GHZ=1 234 570 000", "rubbish=0"});
        check(K::Power, {"-1.2300E+02\n=-123", "-0.4=0", "-5.5=-6"});
        check(K::ExternalReference, {"10\n=10", "10000000.000000\n=10", "1.3E7 HZ=13",
                                     "10000 kHz=10", "100000=0", "99999=99999", "5 lightyears=5"});
        check(K::PulsePeriod, {"1000\n=1 000", "0.001 S\n=1 000", "1.0E-3 S=1 000", "4.35 MS=4 350",
                               "1234567.891=1 234 567.891", "E S=0"});
        check(K::PulseWidth, {"1=1.00", "12.5\n=12.50", "250 NS=0.25"});
        check(K::ModulationRate, {"2.5 KHZ=2 500"});
        check(K::AmDepth, {"30=30.00"});
        check(K::FmDeviation, {"0.0015625=0.0015625"});
        check(K::PmDeviation, {"0.001=0.001"});
        check(K::LfFrequency, {"10000=10 000.0"});
        check(K::LfAmplitude, {"1=1.000", "0.70711=0.70711"});
        check(K::PointCount, {"1000=1 000"});
    }

    void onlyNumbersAreValues()
    {
        for (const char* number : {"0", "-0.000\n", "0 HZ", "0E+00\n", ".5", "25 MHZ", "1e-9"})
            QVERIFY2(replyHasNumber(number, K::ModulationRate), number);
        for (const char* other : {"", "\n", ".", "0x0", "rubbish", "12abc", "0,0", "-"})
            QVERIFY2(!replyHasNumber(other, K::ModulationRate), other);
        QVERIFY(replyHasNumber("0.0 S", K::PulsePeriod) && !replyHasNumber("E S", K::PulsePeriod));
    }

    void clamp()
    {
        const auto check = [](K kind, double min, double max, const QStringList& pairs) {
            checkPairs(pairs, [=](const QString& text) { return clampText(text, min, max, kind); });
        };
        check(K::Frequency, 9e3, 2e10,
              {"2.5G=2 500 000 000", "25 000 000 000=20 000 000 000", "1=9 000", "9000.5=9 001",
               "-=9 000", "nan=9 000", "1e999=20 000 000 000", "="});
        check(K::Frequency, 0.0, 0.0, {"25G=25 000 000 000"});
        check(K::Duty, 50.0, 10.0, {"5=50"});
        check(K::AmDepth, 0.0, 100.0, {"-1=0.00"});
        check(K::Power, -120.0, 0.0, {"5=0"});
        check(K::Power, -120.0, 13.125, {"- 123=-120", "-5.5=-5.5", "20=13.125"});
        // A limit finer than the kind.
        check(K::PmDeviation, 0.0000004, 10.0, {"0=0.0000004"});
        check(K::PulsePeriod, 0.0, 2e7, {"1s=1 000 000"});
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
