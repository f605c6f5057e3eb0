#include "numbers/quantity_text.h"
#include "tests/support/rows.h"

#include <QtTest>

Q_DECLARE_METATYPE(FieldKind)

class QuantityTextTest : public QObject
{
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
};

/// "-" stands for a text that cannot be read.
void QuantityTextTest::reads_data()
{
    testColumns<FieldKind, int, QString, QString>("kind", "plainPower", "text", "number");
    using K = FieldKind;
    const struct {
        FieldKind kind;
        const char* text;
        const char* number;
        int plainPower = 0;
    } rows[] = {
        {K::Frequency, "2450 MHz", "2450000000"},
        {K::Frequency, "2.45E+09", "2450000000"},
        {K::Frequency, "2,45 ГГц", "2450000000"},
        {K::Frequency, "5к", "5000"},
        {K::Frequency, "1,500", "1.5"},
        {K::Frequency, "1,500.25", "1500.25"},
        {K::Frequency, "1.500.000,25 hz", "1500000.25"},
        {K::Frequency, "1\u00a0500\u202f000", "1500000"},
        {K::Frequency, "1 2", "-"},
        {K::Frequency, "1,50,000", "-"},
        {K::Frequency, "1,234,5678", "-"},
        {K::Frequency, "5 ms", "-"},
        {K::Frequency, "5 MHz 3", "-"},
        {K::Frequency, "100\n200", "-"},
        {K::Frequency, "1.2.3", "-"},
        {K::Frequency, "\u0663", "-"},
        {K::Power, "\u221210 дБм", "-10"},
        {K::Power, "- 123", "-123"},
        {K::Power, "-10 dB", "-"},
        {K::Power, "--5", "-"},
        {K::Power, "", "-"},
        {K::Dwell, "1 s", "1000000"},
        {K::Dwell, "20 нс", "0.02"},
        {K::PulseWidth, "20 \u00b5s", "0.02", 3},
        {K::PulseWidth, "20", "20", 3},
        {K::LfAmplitude, "250 mV", "0.25"},
        {K::ExternalReference, "10000 kHz", "10"},
        {K::PmDeviation, "5 mrad", "0.005"},
        {K::PointCount, "5 k", "-"},
    };
    for (const auto& row : rows)
        testRow(row.text, row.kind, row.plainPower, QString(row.text), QString(row.number));
}

void QuantityTextTest::reads()
{
    QFETCH(FieldKind, kind);
    QFETCH(int, plainPower);
    QFETCH(QString, text);
    QTEST(readQuantity(text, kind, plainPower).value_or("-"), "number");
}

QTEST_APPLESS_MAIN(QuantityTextTest)
#include "quantity_text_test.moc"
