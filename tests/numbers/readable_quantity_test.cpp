#include "numbers/readable_quantity.h"

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
    QTest::addColumn<double>("value");
    QTest::addColumn<Unit>("unit");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << 1.0 << Unit::Volt << "1 V";
    QTest::newRow("kilo") << 1000.0 << Unit::Hertz << "1 kHz";
    QTest::newRow("giga") << 2.5e9 << Unit::Hertz << "2.5 GHz";
    QTest::newRow("milli") << 0.0015625 << Unit::Hertz << "1.5625 mHz";
    QTest::newRow("micro") << 0.25e-3 << Unit::Second << "250 µs";
    QTest::newRow("rounds up into the next prefix") << 999999.9 << Unit::Hertz << "1 MHz";
    QTest::newRow("negative") << -0.001 << Unit::Radian << "\u22121 mrad";
    QTest::newRow("percent has no prefix") << 0.001 << Unit::Percent << "0.001 %";
    QTest::newRow("dBm has no prefix") << -0.25 << Unit::Dbm << "\u22120.25 dBm";
    QTest::newRow("no kiloseconds") << 86400.0 << Unit::Second << "86400 s";
    QTest::newRow("a million seconds") << 1e6 << Unit::Second << "1000000 s";
    QTest::newRow("zero") << -0.0 << Unit::Second << "0 s";
    QTest::newRow("beyond the prefixes") << 5e12 << Unit::Hertz << "5000 GHz";
    QTest::newRow("below the prefixes") << 1e-13 << Unit::Second << "0.1 ps";
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
