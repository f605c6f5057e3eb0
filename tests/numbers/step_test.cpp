#include "numbers/step_table.h"
#include "numbers/stepping.h"
#include "tests/numbers/text_pairs.h"
#include "tests/support/files.h"

#include <QFile>
#include <QTemporaryDir>

using K = StepKind;

/// Step sizes, and what a step makes of a number's text.
class StepTest : public QObject
{
    Q_OBJECT

private slots:
    /// For each kind: rounding, upper bound, lower bound.
    void accepted()
    {
        const auto check = [](K kind, double min, double max, const QStringList& pairs) {
            checkPairs(pairs, [=](const QString& typed) {
                return stepText(acceptedStep(kind, typed, min, max));
            });
        };
        check(K::Frequency, 9e3, 2e10, {"1 234.5=1 235", "30G=19 999 991 000", "0.4=1"});
        check(K::Power, -120.0, 13.5, {"1.6=2", "0.4=1", "nan=1", "-=1", "=1"});
        check(K::PointCount, 1.0, 10000.0, {"2.5=1", "1e5=1"});
        check(K::Time, 10.0, 1010.0, {"99.5=100", "1m=1 000"});
        check(K::PulsePeriod, 1.0, 1001.0, {"2.56=2.6"});
        check(K::PulseWidth, 1.0, 1001.0, {"2.56=2.6"});
        check(K::AmRate, 0.5, 100000.0, {"0.26=0.3"});
        check(K::AmDepth, 10.0, 100.0, {"1.239=1.24", "0.004=0.01"});
        for (const K duty : {K::AmDuty, K::FmDuty, K::PmDuty, K::LfDuty})
            check(duty, 5.0, 95.0, {"7=7", "0.9=1", "99=90"});
        for (const K rate : {K::FmRate, K::PmRate, K::LfFrequency})
            check(rate, 0.5, 100000.0, {"1.25=1.3", "0=0.1", "9M=99 999.5"});
        check(K::FmDeviation, 0.0, 1e6, {"0.0015625=0.001563", "0=0.000001"});
        check(K::PmDeviation, 0.0001, 9.9999, {"0.12345=0.123", "50=10", "0=0.001"});
        check(K::PmDeviation, 0.5, 9.5, {"50=9"});
        check(K::LfAmplitude, 0.0, 2.0, {"12m=0.012", "0.0004=0.001"});
        // The lower bound over a smaller span, and the maximum below it.
        check(K::Power, 10.0, 10.5, {"3=1"});
        check(K::AmRate, -1.0, 0.05, {"3=0.1"});
        // No limits; of some there are 32 bits.
        check(K::Frequency, 0.0, 0.0, {"25G=25 000 000 000", "1e300=1 000 000 000 000"});
        check(K::AmDuty, 0.0, 0.0, {"99999999999999999999=2 147 483 647"});
    }

    void tableIsKept()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("settings.ini");
        {
            QSettings settings(path, QSettings::IniFormat);
            StepTable steps;
            steps.attach(&settings);
            QVERIFY(settings.allKeys().isEmpty());
            QCOMPARE(steps.step(K::LfAmplitude), 0.1);
            for (int i = 0; i < stepKindCount; ++i)
                QVERIFY(steps.setStep(static_cast<K>(i), 2 + i));
            QVERIFY(steps.setStep(K::FmDeviation, 0.000001));
            QVERIFY(steps.setStep(K::Frequency, 19999991000.0));
            QVERIFY(!steps.setStep(K::AmDuty, 1.5));
            QVERIFY(!steps.setStep(K::Power, qQNaN()));
        }
        QSettings settings(path, QSettings::IniFormat);
        QCOMPARE(settings.value("Freq_Step").toString(), QString("19999991000"));
        QCOMPARE(settings.value("Point_Step").toInt(), 4);
        StepTable steps;
        steps.attach(&settings);
        QCOMPARE(steps.step(K::Frequency), 19999991000.0);
        QCOMPARE(steps.step(K::FmDeviation), 0.000001);
        QCOMPARE(steps.step(K::AmDuty), 10.0);
        QCOMPARE(steps.step(K::LfDuty), 19.0);
    }

    void damagedStore()
    {
        for (const char* stored : {"", "abc", "nan", "inf", "-5", "0", "1e300", "1,5", "0x10",
                                   "@Invalid()", "@ByteArray(\\0)", "true", "1e-300"}) {
            const QTemporaryDir folder;
            QString text = "[General]\n";
            for (int i = 0; i < stepKindCount; ++i)
                text += QString(stepKey(K(i)) + '=' + stored + '\n');
            const QString path = writeFile(folder.filePath("settings.ini"), text.toUtf8());
            QSettings settings(path, QSettings::IniFormat);
            StepTable steps;
            QVERIFY(steps.setStep(K::Frequency, 5));
            steps.attach(&settings);
            for (int i = 0; i < stepKindCount; ++i)
                QVERIFY2(steps.step(K(i)) == defaultStep(K(i)), stored);
        }
    }

    void step()
    {
        const auto check = [](StepFlags flags, K kind, double size, const QStringList& up,
                              const QStringList& down) {
            for (const int direction : {1, -1})
                checkPairs(direction > 0 ? up : down, [=](const QString& text) {
                    return steppedText(text, direction, kind, size, flags);
                });
        };
        const StepFlags plain{false, false};
        const StepFlags silent{true, false};
        const StepFlags floating{false, true};
        check(plain, K::Frequency, 1e6,
              {"1 000 000 000=1 001 000 000", "=1 000 000",
               "9223372036854775807=9 223 372 036 854 775 807",
               "999999999999999999999=9 223 372 036 854 775 807"},
              {"100=- 999 900", "-999999999999999999999=-9 223 372 036 854 775 808"});
        check(plain, K::Frequency, 1, {"9007199254740993=9 007 199 254 740 994"}, {"-=-1"});
        check(silent, K::Frequency, 1000, {}, {"100=0"});
        check(floating, K::Frequency, 0.5, {"999999.5=1 000 000"}, {});
        check(plain, K::Power, 1, {"- 123=- 122"}, {"-0.5=-1.5"});
        check(plain, K::AmDepth, 1, {}, {"0.5=0"});
        check(floating, K::AmDepth, 1.5, {}, {"1.00=-0.5"});
        check(plain, K::AmDepth, 0.1, {"0.2=0.3", "5=5"}, {});
        check(plain, K::LfAmplitude, 0.1, {"1.900=2.000", "1.000=1.1"}, {"0.000=-0.1"});
        check(plain, K::AmDuty, 5, {}, {"1=0"});
        check(plain, K::Time, 100, {"1.2.3=100"}, {});
    }

    /// The cursor stands at "|"; a text that is no number stays, too.
    void digit()
    {
        const auto check = [](int direction, bool stopAtZero, const QStringList& pairs) {
            checkPairs(pairs, [=](QString text) {
                const int cursor = text.indexOf('|');
                const std::optional<int> place = decimalPlaceAt(text.remove('|'), cursor);
                if (!place)
                    return steppedPlace(text, 0, direction, stopAtZero) + " has no digits";
                const QString stepped = steppedPlace(text, *place, direction, stopAtZero);
                return QString(stepped).insert(cursorBehindPlace(stepped, *place), '|');
            });
        };
        check(1, true,
              {"|250=3|50", "25.|10=26|.10", "0.9|5=1.0|5", "999 99|9=1 000 00|9", "9|99=1 0|99",
               ".5|=0.6|", "999 999 999 999 999 999 999 999|=1 000 000 000 000 000 000 000 000|",
               "0.100000000000000000001|=0.100000000000000000002|"});
        check(-1, true,
              {"1 |234 567=|234 567", "1 000 00|0=999 99|0", "1 0|00=9|00", "1| 000=|0",
               "0|.50=0|.00"});
        check(-1, false, {"0|.50=-0|.50", "0|75=|-25", "|-12=-2|2", "-9|99=-1 0|99"});
        check(1, false, {"-5|=-4|", "-1|=0|", "-1 0|00=- 9|00", "-0|25=|75"});
        for (const QString text : {"", "-", ".", "1.2.3", "1e5", "2,5", "5-3", "12k", " "})
            check(1, true, {text + "|=" + text + " has no digits"});
    }
};

QTEST_GUILESS_MAIN(StepTest)
#include "step_test.moc"
