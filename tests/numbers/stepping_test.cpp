#include "numbers/stepping.h"

#include "tests/numbers/text_pairs.h"

#include <QTest>

Q_DECLARE_METATYPE(StepKind)

class SteppingTest : public QObject
{
    Q_OBJECT

private slots:
    void step_data()
    {
        testColumns<StepKind, int, double, QString, QString, QString>("kind", "direction", "size",
                                                                      "flags", "text", "expected");
        using K = StepKind;
        const auto rows = [](const QString& flags, K kind, double size, const QStringList& up,
                             const QStringList& down) {
            pairRows("up " + flags, up, kind, 1, size, flags);
            pairRows("down " + flags, down, kind, -1, size, flags);
        };
        rows("", K::Frequency, 1e6,
             {"1 000 000 000=1 001 000 000", "=1 000 000",
              "9223372036854775807=9 223 372 036 854 775 807",
              "999999999999999999999=9 223 372 036 854 775 807"},
             {"100=- 999 900", "-999999999999999999999=-9 223 372 036 854 775 808"});
        rows("", K::Frequency, 1, {"9007199254740993=9 007 199 254 740 994"}, {"-=-1"});
        rows("silent", K::Frequency, 1000, {}, {"100=0"});
        rows("float", K::Frequency, 0.5, {"999999.5=1 000 000"}, {});
        rows("", K::Power, 1, {"- 123=- 122"}, {"-0.5=-1.5"});
        rows("", K::AmDepth, 1, {}, {"0.5=0"});
        rows("float", K::AmDepth, 1.5, {}, {"1.00=-0.5"});
        rows("", K::AmDepth, 0.1, {"0.2=0.3", "5=5"}, {});
        rows("", K::LfAmplitude, 0.1, {"1.900=2.000", "1.000=1.1"}, {"0.000=-0.1"});
        rows("", K::AmDuty, 5, {}, {"1=0"});
        rows("", K::Time, 100, {"1.2.3=100"}, {});
    }

    void step()
    {
        QFETCH(StepKind, kind);
        QFETCH(int, direction);
        QFETCH(double, size);
        QFETCH(QString, flags);
        QFETCH(QString, text);
        const StepFlags stepFlags{flags == "silent", flags == "float"};
        QTEST(steppedText(text, direction, kind, size, stepFlags), "expected");
    }

    /// The cursor stands at "|" in both columns.
    void digit_data()
    {
        testColumns<int, bool, QString, QString>("direction", "stopAtZero", "before", "after");
        pairRows("up",
                 {"|250=3|50", "25.|10=26|.10", "0.9|5=1.0|5", "999 99|9=1 000 00|9", "9|99=1 0|99",
                  ".5|=0.6|", "999 999 999 999 999 999 999 999|=1 000 000 000 000 000 000 000 000|",
                  "0.100000000000000000001|=0.100000000000000000002|"},
                 1, true);
        pairRows("down",
                 {"1 |234 567=|234 567", "1 000 00|0=999 99|0", "1 0|00=9|00", "1| 000=|0",
                  "0|.50=0|.00"},
                 -1, true);
        pairRows("down through zero", {"0|.50=-0|.50", "0|75=|-25", "|-12=-2|2", "-9|99=-1 0|99"},
                 -1, false);
        pairRows("up to zero", {"-5|=-4|", "-1|=0|", "-1 0|00=- 9|00", "-0|25=|75"}, 1, false);
    }

    void digit()
    {
        QFETCH(int, direction);
        QFETCH(bool, stopAtZero);
        QFETCH(QString, before);
        const int cursor = before.indexOf('|');
        const QString text = before.remove('|');
        const std::optional<int> place = decimalPlaceAt(text, cursor);
        QVERIFY(place);
        QString stepped = steppedPlace(text, *place, direction, stopAtZero);
        QTEST(stepped.insert(cursorBehindPlace(stepped, *place), '|'), "after");
    }

    void digitTextThatIsNoNumber()
    {
        for (const QString& text :
             QStringList({"", "-", ".", "1.2.3", "1e5", "2,5", "5-3", "12k", " "})) {
            QCOMPARE(steppedPlace(text, 0, 1, true), text);
            for (int cursor = 0; cursor <= text.size(); ++cursor)
                QVERIFY2(!decimalPlaceAt(text, cursor), qPrintable(text));
        }
    }
};

QTEST_GUILESS_MAIN(SteppingTest)
#include "stepping_test.moc"
