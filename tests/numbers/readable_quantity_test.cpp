#include "numbers/readable_quantity.h"
#include "tests/support/rows.h"

#include <QTest>

Q_DECLARE_METATYPE(Unit)

class ReadableQuantityTest : public QObject
{
    Q_OBJECT

private slots:
    void readable_data();
    void readable();
    void digits();
};

void ReadableQuantityTest::readable_data()
{
    testColumns<double, Unit, QString>("value", "unit", "text");
    testRow("plain", 1.0, Unit::Volt, "1 V");
    testRow("kilo", 1000.0, Unit::Hertz, "1 kHz");
    testRow("giga", 2.5e9, Unit::Hertz, "2.5 GHz");
    testRow("milli", 0.0015625, Unit::Hertz, "1.5625 mHz");
    testRow("micro", 0.25e-3, Unit::Second, "250 µs");
    testRow("rounds up into the next prefix", 999999.9, Unit::Hertz, "1 MHz");
    testRow("negative", -0.001, Unit::Radian, "\u22121 mrad");
    testRow("percent has no prefix", 0.001, Unit::Percent, "0.001 %");
    testRow("dBm has no prefix", -0.25, Unit::Dbm, "\u22120.25 dBm");
    testRow("no kiloseconds", 86400.0, Unit::Second, "86400 s");
    testRow("a million seconds", 1e6, Unit::Second, "1000000 s");
    testRow("zero", -0.0, Unit::Second, "0 s");
    testRow("beyond the prefixes", 5e12, Unit::Hertz, "5000 GHz");
    testRow("below the prefixes", 1e-13, Unit::Second, "0.1 ps");
}

void ReadableQuantityTest::readable()
{
    QFETCH(double, value);
    QFETCH(Unit, unit);
    QTEST(readableQuantity(value, unit), "text");
}

void ReadableQuantityTest::digits()
{
    QCOMPARE(readableQuantity(1000000001.0, Unit::Hertz), QString("1 GHz"));
    QCOMPARE(readableQuantity(1000000001.0, Unit::Hertz, 10), QString("1.000000001 GHz"));
}

QTEST_MAIN(ReadableQuantityTest)
#include "readable_quantity_test.moc"
