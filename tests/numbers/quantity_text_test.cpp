#include "numbers/quantity_text.h"
#include "tests/numbers/text_pairs.h"

#include <QtTest>

Q_DECLARE_METATYPE(FieldKind)

class QuantityTextTest : public QObject
{
    Q_OBJECT

private slots:
    /// "-" stands for a text that cannot be read.
    void reads_data()
    {
        testColumns<FieldKind, int, QString, QString>("kind", "plainPower", "text", "number");
        using K = FieldKind;
        pairRows("frequency",
                 {"2450 MHz=2450000000", "2.45E+09=2450000000", "2,45 ГГц=2450000000", "5к=5000",
                  "1,500=1.5", "1,500.25=1500.25", "1.500.000,25 hz=1500000.25",
                  "1\u00a0500\u202f000=1500000", "1 2=-", "1,50,000=-", "1,234,5678=-", "5 ms=-",
                  "5 MHz 3=-", "100\n200=-", "1.2.3=-", "\u0663=-"},
                 K::Frequency, 0);
        pairRows("power", {"\u221210 дБм=-10", "- 123=-123", "-10 dB=-", "--5=-", "5-3=-", "=-"},
                 K::Power, 0);
        pairRows("dwell", {"1 s=1000000", "20 нс=0.02"}, K::Dwell, 0);
        pairRows("width in ms", {"20 \u00b5s=0.02", "20=20"}, K::PulseWidth, 3);
        pairRows("amplitude", {"250 mV=0.25"}, K::LfAmplitude, 0);
        pairRows("duty", {"50 %=50"}, K::Duty, 0);
        pairRows("reference", {"10000 kHz=10"}, K::ExternalReference, 0);
        pairRows("phase", {"5 mrad=0.005"}, K::PmDeviation, 0);
        pairRows("points", {"5 k=-"}, K::PointCount, 0);
    }

    void reads()
    {
        QFETCH(FieldKind, kind);
        QFETCH(int, plainPower);
        QFETCH(QString, text);
        QTEST(readQuantity(text, kind, plainPower).value_or("-"), "number");
    }

    void headings_data()
    {
        testColumns<QString, FieldKind, QString>("heading", "kind", "unit");
        const auto row = [](const char* heading, FieldKind kind, const char* unit) {
            testRow(heading, QString::fromUtf8(heading), kind, unit);
        };
        row("Freq [Hz]", FieldKind::Frequency, "0");
        row("\"Frequency (GHz), coarse\"", FieldKind::Frequency, "9");
        row("freq_mhz", FieldKind::Frequency, "6");
        row("Частота, кГц", FieldKind::Frequency, "3");
        row("Dwell [ms]", FieldKind::Dwell, "3");
        row("Время, с", FieldKind::Dwell, "6");
        row("Dwell [\u03bcs]", FieldKind::Dwell, "0");
        row("Pow [dBm]", FieldKind::Power, "0");
        row("Pow [mW]", FieldKind::Power, "foreign");
        row("Level (MHz)", FieldKind::Power, "foreign");
        row("Frequency", FieldKind::Frequency, "0");
        row("Start of time's", FieldKind::Frequency, "0");
        row("Freq [first]", FieldKind::Frequency, "0");
        row("", FieldKind::Dwell, "0");
    }
    void headings()
    {
        QFETCH(QString, heading);
        QFETCH(FieldKind, kind);
        const HeadingUnit unit = headingUnit(heading, kind);
        QTEST(unit.isForeign ? QString("foreign") : QString::number(unit.powerOfTen), "unit");
    }
};

QTEST_APPLESS_MAIN(QuantityTextTest)
#include "quantity_text_test.moc"
