#include "numbers/step_table.h"
#include "tests/numbers/text_pairs.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(StepKind)

class StepTest : public QObject
{
    Q_OBJECT

private slots:
    /// For each kind: rounding, upper bound, lower bound.
    void accepted_data()
    {
        testColumns<StepKind, double, double, QString, QString>("kind", "min", "max", "typed",
                                                                "written");
        using K = StepKind;
        pairRows("frequency", {"1 234.5=1 235", "30G=19 999 991 000", "0.4=1"}, K::Frequency, 9e3,
                 2e10);
        pairRows("power", {"1.6=2", "0.4=1", "nan=1", "-=1", "=1"}, K::Power, -120.0, 13.5);
        pairRows("points", {"2.5=1", "1e5=1"}, K::PointCount, 1.0, 10000.0);
        pairRows("time", {"99.5=100", "1m=1 000"}, K::Time, 10.0, 1010.0);
        pairRows("period", {"2.56=2.6"}, K::PulsePeriod, 1.0, 1001.0);
        pairRows("width", {"2.56=2.6"}, K::PulseWidth, 1.0, 1001.0);
        pairRows("AM rate", {"0.26=0.3"}, K::AmRate, 0.5, 100000.0);
        pairRows("AM depth", {"1.239=1.24", "0.004=0.01"}, K::AmDepth, 10.0, 100.0);
        for (const K duty : {K::AmDuty, K::FmDuty, K::PmDuty, K::LfDuty})
            pairRows(stepKey(duty), {"7=7", "0.9=1", "99=90"}, duty, 5.0, 95.0);
        for (const K rate : {K::FmRate, K::PmRate, K::LfFrequency})
            pairRows(stepKey(rate), {"1.25=1.3", "0=0.1", "9M=99 999.5"}, rate, 0.5, 100000.0);
        pairRows("FM deviation", {"0.0015625=0.001563", "0=0.000001"}, K::FmDeviation, 0.0, 1e6);
        pairRows("PM deviation", {"0.12345=0.123", "50=10", "0=0.001"}, K::PmDeviation, 0.0001,
                 9.9999);
        pairRows("PM deviation's span", {"50=9"}, K::PmDeviation, 0.5, 9.5);
        pairRows("LF amplitude", {"12m=0.012", "0.0004=0.001"}, K::LfAmplitude, 0.0, 2.0);
        pairRows("lower bound over a smaller span", {"3=1"}, K::Power, 10.0, 10.5);
        pairRows("maximum below the lower bound", {"3=0.1"}, K::AmRate, -1.0, 0.05);
        pairRows("no limits", {"25G=25 000 000 000", "1e300=1 000 000 000 000"}, K::Frequency, 0.0,
                 0.0);
        pairRows("no limits, 32 bits", {"99999999999999999999=2 147 483 647"}, K::AmDuty, 0.0, 0.0);
    }

    void accepted()
    {
        QFETCH(StepKind, kind);
        QFETCH(double, min);
        QFETCH(double, max);
        QFETCH(QString, typed);
        QTEST(stepText(acceptedStep(kind, typed, min, max)), "written");
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
            QCOMPARE(steps.step(StepKind::LfAmplitude), 0.1);
            for (int i = 0; i < stepKindCount; ++i)
                QVERIFY(steps.setStep(static_cast<StepKind>(i), 2 + i));
            QVERIFY(steps.setStep(StepKind::FmDeviation, 0.000001));
            QVERIFY(steps.setStep(StepKind::Frequency, 19999991000.0));
            QVERIFY(!steps.setStep(StepKind::AmDuty, 1.5));
            QVERIFY(!steps.setStep(StepKind::Power, qQNaN()));
        }
        QSettings settings(path, QSettings::IniFormat);
        QCOMPARE(settings.value("Freq_Step").toString(), QString("19999991000"));
        QCOMPARE(settings.value("Point_Step").toInt(), 4);
        StepTable steps;
        steps.attach(&settings);
        QCOMPARE(steps.step(StepKind::Frequency), 19999991000.0);
        QCOMPARE(steps.step(StepKind::FmDeviation), 0.000001);
        QCOMPARE(steps.step(StepKind::AmDuty), 10.0);
        QCOMPARE(steps.step(StepKind::LfDuty), 19.0);
    }

    void damagedStore()
    {
        for (const char* stored : {"", "abc", "nan", "inf", "-5", "0", "1e300", "1,5", "0x10",
                                   "@Invalid()", "@ByteArray(\\0)", "true", "1e-300"}) {
            const QTemporaryDir folder;
            const QString path = folder.filePath("settings.ini");
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("[General]\n");
            for (int i = 0; i < stepKindCount; ++i)
                file.write(QString(stepKey(StepKind(i)) + '=' + stored + '\n').toUtf8());
            file.close();
            QSettings settings(path, QSettings::IniFormat);
            StepTable steps;
            QVERIFY(steps.setStep(StepKind::Frequency, 5));
            steps.attach(&settings);
            for (int i = 0; i < stepKindCount; ++i)
                QVERIFY2(steps.step(StepKind(i)) == defaultStep(StepKind(i)), stored);
        }
    }
};

QTEST_GUILESS_MAIN(StepTest)
#include "step_test.moc"
