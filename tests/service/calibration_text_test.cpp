#include "service/calibration_text.h"
#include "tests/numbers/text_pairs.h"

#include <QtTest>

/// What may be typed into a calibration point, and what an instrument may answer.
class CalibrationTextTest : public QObject
{
    Q_OBJECT

private slots:
    void frequencies()
    {
        checkPairs({"1 000 000 000=1000000000", "2.25 GHZ=2250000000", "100 KHZ=100000",
                    "2,5 m=2500000", "007 HZ=7", "0=0", "999999999999999=999999999999999",
                    // No double holds the first exactly after a multiplication; the others are too
                    // fine.
                    "19.999999999 GHZ=19999999999", "1.23456 KHZ=1234",
                    "19.9999999999 GHZ=19999999999", "=",
                    "abc=", "5 THZ=", "1.5.2=", "-5=", "1000000000000000=", "5;MEM:TABLE:SAVE="},
                   wholeHertz);
    }

    void values()
    {
        checkPairs({"7=7", " - 12 =-12", "+3=3", "-0=0", "1 000=1000", "999999999=999999999", "=",
                    "2.5=", "3 dB=", "1234567890=", "-="},
                   wholeValue);
    }

    void replies()
    {
        checkPairs({"1000000000 -4 2000000000 3\n=1000000000|-4|2000000000|3", "  5   6 \r\n=5|6",
                    "+1.000000E+09 -3.000 2.6=1000000000|-3|3",
                    "\"25000000Hz, -7dBm;\"=25000000|-7", "1,000,000=1000000", "5 ERROR 6=5||6",
                    "\n="},
                   [](const QString& reply) { return wholeNumbersOfReply(reply).join('|'); });
    }
};

QTEST_GUILESS_MAIN(CalibrationTextTest)
#include "calibration_text_test.moc"
