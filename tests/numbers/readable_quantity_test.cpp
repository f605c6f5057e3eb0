#include "numbers/readable_quantity.h"
#include "tests/numbers/text_pairs.h"

#include <QTest>

Q_DECLARE_METATYPE(Unit)

class ReadableQuantityTest : public QObject
{
    Q_OBJECT

private slots:
    void readable_data()
    {
        testColumns<Unit, int, QString, QString>("unit", "digits", "value", "text");
        pairRows("hertz",
                 {"1000=1 kHz", "2.5e9=2.5 GHz", "0.0015625=1.5625 mHz", "999999.9=1 MHz",
                  "5e12=5000 GHz", "1000000001=1 GHz"},
                 Unit::Hertz, 5);
        pairRows("ten digits", {"1000000001=1.000000001 GHz"}, Unit::Hertz, 10);
        pairRows("seconds",
                 {"0.00025=250 µs", "86400=86400 s", "1e6=1000000 s", "-0=0 s", "1e-13=0.1 ps"},
                 Unit::Second, 5);
        pairRows("volts", {"1=1 V"}, Unit::Volt, 5);
        pairRows("radians", {"-0.001=\u22121 mrad"}, Unit::Radian, 5);
        pairRows("per cent", {"0.001=0.001 %"}, Unit::Percent, 5);
        pairRows("dBm", {"-0.25=\u22120.25 dBm"}, Unit::Dbm, 5);
    }

    void readable()
    {
        QFETCH(Unit, unit);
        QFETCH(int, digits);
        QFETCH(QString, value);
        QTEST(readableQuantity(value.toDouble(), unit, digits), "text");
    }
};

QTEST_MAIN(ReadableQuantityTest)
#include "readable_quantity_test.moc"
