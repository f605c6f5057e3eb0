#include "numbers/step_table.h"
#include "tests/support/rows.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(StepKind)

class StepTest : public QObject
{
    Q_OBJECT

private slots:
    void accepted_data();
    void accepted();
    void acceptedStepsArePossible();
    void table();
    void damagedStore_data();
    void damagedStore();
};

void StepTest::accepted_data()
{
    testColumns<StepKind, QString, double, double, QString>("kind", "typed", "min", "max",
                                                            "written");

    struct Row {
        StepKind kind;
        const char* typed;
        double min;
        double max;
        const char* written;
    };
    using K = StepKind;
    // For each kind: rounding, upper bound, lower bound.
    const Row rows[] = {
        {K::Frequency, "1 234.5", 9e3, 2e10, "1 235"},
        {K::Frequency, "30G", 9e3, 2e10, "19 999 991 000"},
        {K::Frequency, "0.4", 9e3, 2e10, "1"},
        {K::Power, "1.6", -120, 13.5, "2"},
        {K::Power, "0.4", -120, 13.5, "1"},
        {K::PointCount, "2.5", 1, 10000, "1"},
        {K::Time, "99.5", 10, 1010, "100"},
        {K::Time, "1m", 10, 10010, "1 000"},
        {K::PulsePeriod, "2.56", 1, 1001, "2.6"},
        {K::PulseWidth, "2.56", 1, 1001, "2.6"},
        {K::AmRate, "0.26", 0.5, 100000, "0.3"},
        {K::AmDepth, "1.239", 10, 100, "1.24"},
        {K::AmDepth, "0.004", 10, 100, "0.01"},
        {K::AmDuty, "7", 5, 95, "7"},
        {K::AmDuty, "0.9", 5, 95, "1"},
        {K::FmDeviation, "0.0015625", 0, 1e6, "0.001563"},
        {K::FmDeviation, "0", 0, 1e6, "0.000001"},
        {K::PmDeviation, "0.12345", 0.0001, 10, "0.123"},
        {K::PmDeviation, "50", 0.0001, 9.9999, "10"},
        {K::PmDeviation, "0", 0.0001, 10, "0.001"},
        {K::LfFrequency, "1.25", 0.5, 100000, "1.3"},
        {K::LfAmplitude, "12m", 0, 2, "0.012"},
        {K::LfAmplitude, "0.0004", 0, 2, "0.001"},
        // The lower bound wins over a smaller span, and no limits bound nothing.
        {K::Power, "3", 10, 10.5, "1"},
        {K::AmRate, "3", -1, 0.05, "0.1"},
        {K::Frequency, "25G", 0, 0, "25 000 000 000"},
        {K::AmDuty, "99999999999999999999", 0, 0, "2 147 483 647"},
        {K::Frequency, "1e300", 0, 0, "1 000 000 000 000"},
    };
    for (const Row& row : rows)
        QTest::addRow("%d: %s", static_cast<int>(&row - rows), row.typed)
            << row.kind << QString(row.typed) << row.min << row.max << QString(row.written);
}

void StepTest::accepted()
{
    QFETCH(StepKind, kind);
    QFETCH(QString, typed);
    QFETCH(double, min);
    QFETCH(double, max);
    QTEST(stepText(acceptedStep(kind, typed, min, max)), "written");
}

void StepTest::acceptedStepsArePossible()
{
    const QString nasty[] = {"",    "-",   ".",     ",",  "1.2.3",           "2.5G",
                             "1e5", "nan", "1e999", "--", QString(400, '9'), QString(QChar(0))};
    for (int i = 0; i < stepKindCount; ++i) {
        const auto kind = static_cast<StepKind>(i);
        for (const QString& typed : nasty) {
            for (double max : {0.0, 1.0, 1e9})
                QVERIFY2(isPossibleStep(kind, acceptedStep(kind, typed, 0, max)),
                         qPrintable(stepKey(kind) + ": " + typed));
        }
        QVERIFY(isPossibleStep(kind, defaultStep(kind)));
    }
}

void StepTest::table()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("settings.ini");
    {
        QSettings settings(path, QSettings::IniFormat);
        StepTable steps;
        steps.attach(&settings);
        QVERIFY(settings.allKeys().isEmpty());
        QCOMPARE(steps.step(StepKind::Frequency), 1e6);
        QCOMPARE(steps.step(StepKind::LfAmplitude), 0.1);
        for (int i = 0; i < stepKindCount; ++i)
            QVERIFY(steps.setStep(static_cast<StepKind>(i), 2 + i));
        QVERIFY(steps.setStep(StepKind::FmDeviation, 0.000001));
        QVERIFY(steps.setStep(StepKind::Frequency, 19999991000.0));
        QVERIFY(!steps.setStep(StepKind::AmDuty, 1.5));
        QVERIFY(!steps.setStep(StepKind::Power, qQNaN()));
        QCOMPARE(steps.step(StepKind::AmDuty), 10.0);
        settings.sync();
        QVERIFY(QFile(path).exists());
    }
    QSettings settings(path, QSettings::IniFormat);
    QCOMPARE(settings.value("Freq_Step").toString(), QString("19999991000"));
    QCOMPARE(settings.value("Point_Step").toInt(), 4);
    QCOMPARE(settings.value("Time_Step").toInt(), 5);
    StepTable steps;
    steps.attach(&settings);
    QCOMPARE(steps.step(StepKind::Frequency), 19999991000.0);
    QCOMPARE(steps.step(StepKind::FmDeviation), 0.000001);
    QCOMPARE(steps.step(StepKind::LfDuty), 19.0);
}

void StepTest::damagedStore_data()
{
    testColumns<QString>("stored");
    for (const char* stored : {"", "abc", "nan", "inf", "-5", "0", "1e300", "1,5", "0x10",
                               "@Invalid()", "@ByteArray(\\0)", "true", "1e-300"})
        testRow(stored, QString(stored));
}

void StepTest::damagedStore()
{
    QFETCH(QString, stored);
    QTemporaryDir folder;
    const QString path = folder.filePath("settings.ini");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\n");
    for (int i = 0; i < stepKindCount; ++i)
        file.write(QString(stepKey(static_cast<StepKind>(i)) + '=' + stored + '\n').toUtf8());
    file.close();

    QSettings settings(path, QSettings::IniFormat);
    StepTable steps;
    QVERIFY(steps.setStep(StepKind::Frequency, 5));
    steps.attach(&settings);
    for (int i = 0; i < stepKindCount; ++i) {
        const auto kind = static_cast<StepKind>(i);
        QCOMPARE(steps.step(kind), defaultStep(kind));
    }
}

QTEST_GUILESS_MAIN(StepTest)
#include "step_test.moc"
