#include "numbers/stepping.h"

#include "numbers/number_text.h"
#include "tests/support/rows.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>

Q_DECLARE_METATYPE(StepKind)

class SteppingTest : public QObject
{
    Q_OBJECT

private slots:
    void step_data();
    void step();
    void digit_data();
    void digit();
    void digitAgreesWithArithmetic();
    void digitTextThatIsNoNumber_data();
    void digitTextThatIsNoNumber();
};

void SteppingTest::step_data()
{
    testColumns<StepKind, QString, int, double, QString, QString>("kind", "text", "direction",
                                                                  "size", "flags", "expected");

    struct Row {
        StepKind kind;
        int direction;
        QString text;
        double size;
        const char* flags;
        QString expected;
    };
    using K = StepKind;
    const Row rows[] = {
        {K::Frequency, 1, "1 000 000 000", 1e6, "", "1 001 000 000"},
        {K::Frequency, 1, "9007199254740993", 1, "", "9 007 199 254 740 994"},
        {K::Frequency, 1, "", 1e6, "", "1 000 000"},
        {K::Frequency, -1, "-", 5, "", "-5"},
        {K::Frequency, -1, "100", 1000, "", "- 900"},
        {K::Frequency, -1, "100", 1000, "silent", "0"},
        {K::Frequency, 1, "999999.5", 0.5, "float", "1 000 000"},
        {K::Frequency, 1, "9223372036854775807", 1e6, "", "9 223 372 036 854 775 807"},
        {K::Frequency, 1, QString(30, '9'), 1e6, "", "9 223 372 036 854 775 807"},
        {K::Frequency, -1, "-" + QString(30, '9'), 1e6, "", "-9 223 372 036 854 775 808"},
        {K::Power, 1, "- 123", 1, "", "- 122"},
        {K::Power, -1, "-0.5", 1, "", "-1.5"},
        {K::AmDepth, -1, "0.5", 1, "", "0"},
        {K::AmDepth, -1, "1.00", 1.5, "float", "-0.5"},
        {K::AmDepth, 1, "0.2", 0.1, "", "0.3"},
        {K::AmDepth, 1, "5", 0.5, "", "5"},
        {K::LfAmplitude, 1, "1.900", 0.1, "", "2.000"},
        {K::LfAmplitude, 1, "1.000", 0.1, "", "1.1"},
        {K::AmDuty, -1, "1", 5, "", "0"},
        {K::Time, 1, "1.2.3", 100, "", "100"},
    };
    for (const Row& row : rows)
        QTest::addRow("%d: %s", static_cast<int>(&row - rows), qPrintable(row.text))
            << row.kind << row.text << row.direction << row.size << QString(row.flags)
            << row.expected;
}

void SteppingTest::step()
{
    QFETCH(StepKind, kind);
    QFETCH(QString, text);
    QFETCH(int, direction);
    QFETCH(double, size);
    QFETCH(QString, flags);
    const StepFlags stepFlags{flags == "silent", flags == "float"};
    QTEST(steppedText(text, direction, kind, size, stepFlags), "expected");
}

/// The cursor stands at "|" in both columns.
void SteppingTest::digit_data()
{
    testColumns<QString, int, bool, QString>("before", "direction", "stopAtZero", "after");

    const struct {
        const char* name;
        const char* before;
        int direction;
        bool stopAtZero;
        const char* after;
    } rows[] = {
        {"behind a blank", "1 |234 567", -1, true, "|234 567"},
        {"at the start", "|250", 1, true, "3|50"},
        {"behind the point", "25.|10", 1, true, "26|.10"},
        {"tenths", "0.9|5", 1, true, "1.0|5"},
        {"carry regroups", "9|99", 1, true, "1 0|99"},
        {"borrow regroups", "1 0|00", -1, true, "9|00"},
        {"borrow drops zeros", "1| 000", -1, true, "|0"},
        {"stops at zero, through it", "0|.50", -1, true, "0|.00"},
        {"through zero", "0|.50", -1, false, "-0|.50"},
        {"before the minus", "|-12", -1, false, "-2|2"},
        {"to zero", "-5|", 5, false, "-4|"},
        {"zero has no sign", "-1|", 1, false, "0|"},
        {"no whole part", ".5|", 1, true, "0.6|"},
        {"beyond 64 bits", "999 999 999 999 999 999 999 999 999 999|", 1, true,
         "1 000 000 000 000 000 000 000 000 000 000|"},
        {"exact decimals", "0.100000000000000000001|", 1, true, "0.100000000000000000002|"},
    };
    for (const auto& row : rows)
        testRow(row.name, QString(row.before), row.direction, row.stopAtZero, QString(row.after));
}

void SteppingTest::digit()
{
    QFETCH(QString, before);
    QFETCH(int, direction);
    QFETCH(bool, stopAtZero);
    const int cursor = before.indexOf('|');
    const QString text = before.remove('|');
    const std::optional<int> place = decimalPlaceAt(text, cursor);
    QVERIFY(place);
    QString stepped = steppedPlace(text, *place, direction, stopAtZero);
    QTEST(stepped.insert(cursorBehindPlace(stepped, *place), '|'), "after");
}

void SteppingTest::digitAgreesWithArithmetic()
{
    QRandomGenerator random(5);
    for (int i = 0; i < 5000; ++i) {
        const qint64 value = random.bounded(2000000) - 1000000;
        const int place = random.bounded(7);
        const int direction = random.bounded(2) == 0 ? 1 : -1;
        const auto unit = static_cast<qint64>(std::llround(std::pow(10, place)));
        const QString stepped =
            steppedPlace(groupDigits(QString::number(value)), place, direction, false);
        QCOMPARE(toWholeNumber(stepped), value + direction * unit);
        QCOMPARE(stepped, groupDigits(withoutBlanks(stepped)));
        const int cursor = cursorBehindPlace(stepped, place);
        if (cursor > 0)
            QCOMPARE(decimalPlaceAt(stepped, cursor).value_or(-99), place);
    }
}

void SteppingTest::digitTextThatIsNoNumber_data()
{
    testColumns<QString>("text");
    for (const char* text : {"", "-", ".", "1.2.3", "1e5", "2,5", "5-3", "12k", " "})
        testRow(text, QString(text));
    testRow("NUL", QString(QChar(0)));
}

void SteppingTest::digitTextThatIsNoNumber()
{
    QFETCH(QString, text);
    QCOMPARE(steppedPlace(text, 0, 1, true), text);
    for (int cursor = 0; cursor <= text.size(); ++cursor)
        QVERIFY(!decimalPlaceAt(text, cursor));
}

QTEST_GUILESS_MAIN(SteppingTest)
#include "stepping_test.moc"
