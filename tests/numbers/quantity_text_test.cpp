#include "numbers/quantity_text.h"

#include "numbers/readable_quantity.h"
#include "tests/numbers/text_pairs.h"

using K = FieldKind;

/// Quantities with their units, as texts that people write and read.
class QuantityTextTest : public QObject
{
    Q_OBJECT

private slots:
    /// "-" stands for a text that cannot be read.
    void reads()
    {
        const auto check = [](K kind, int plainPower, const QStringList& pairs) {
            checkPairs(pairs, [=](const QString& text) {
                return readQuantity(text, kind, plainPower).value_or("-");
            });
        };
        check(K::Frequency, 0,
              {"2450 MHz=2450000000", "2.45E+09=2450000000", "2,45 ГГц=2450000000", "5к=5000",
               "1,500=1.5", "1,500.25=1500.25", "1.500.000,25 hz=1500000.25",
               "1\u00a0500\u202f000=1500000", "1 2=-", "1,50,000=-", "1,234,5678=-", "5 ms=-",
               "5 MHz 3=-", "100\n200=-", "1.2.3=-", "\u0663=-"});
        check(K::Power, 0, {"\u221210 дБм=-10", "- 123=-123", "-10 dB=-", "--5=-", "5-3=-", "=-"});
        check(K::Dwell, 0, {"1 s=1000000", "20 нс=0.02"});
        check(K::PulseWidth, 3, {"20 \u00b5s=0.02", "20=20"});
        check(K::LfAmplitude, 0, {"250 mV=0.25"});
        check(K::Duty, 0, {"50 %=50"});
        check(K::ExternalReference, 0, {"10000 kHz=10"});
        check(K::PmDeviation, 0, {"5 mrad=0.005", "2 rad=2"});
        check(K::PointCount, 0, {"5 k=-"});
    }

    void headings()
    {
        const auto check = [](K kind, const QStringList& pairs) {
            checkPairs(pairs, [kind](const QString& heading) {
                const HeadingUnit unit = headingUnit(heading, kind);
                return unit.isForeign ? QString("foreign") : QString::number(unit.powerOfTen);
            });
        };
        check(K::Frequency,
              {"Freq [Hz]=0", "\"Frequency (GHz), coarse\"=9", "freq_mhz=6", "Частота, кГц=3",
               "Frequency=0", "Start of time's=0", "Freq [first]=0"});
        check(K::Dwell, {"Dwell [ms]=3", "Время, с=6", "Dwell [\u03bcs]=0", "=0"});
        check(K::Power, {"Pow [dBm]=0", "Pow [mW]=foreign", "Level (MHz)=foreign"});
    }

    void readable()
    {
        const auto check = [](Unit unit, int digits, const QStringList& pairs) {
            checkPairs(pairs, [=](const QString& value) {
                return readableQuantity(value.toDouble(), unit, digits);
            });
        };
        check(Unit::Hertz, 5,
              {"1000=1 kHz", "2.5e9=2.5 GHz", "0.0015625=1.5625 mHz", "999999.9=1 MHz",
               "999960=999.96 kHz", "5e12=5000 GHz", "1000000001=1 GHz"});
        check(Unit::Hertz, 10, {"1000000001=1.000000001 GHz"});
        check(Unit::Second, 5,
              {"0.00025=250 µs", "86400=86400 s", "1e6=1000000 s", "-0=0 s", "1e-13=0.1 ps"});
        check(Unit::Volt, 5, {"1=1 V"});
        check(Unit::Radian, 5, {"-0.001=\u22121 mrad"});
        check(Unit::Percent, 5, {"0.001=0.001 %"});
        check(Unit::Dbm, 5, {"-0.25=\u22120.25 dBm"});
    }
};

QTEST_MAIN(QuantityTextTest)
#include "quantity_text_test.moc"
