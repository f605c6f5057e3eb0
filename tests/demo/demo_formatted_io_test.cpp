#include "tests/demo/demo_session.h"

#include <array>
#include <cstdarg>
#include <limits>

namespace
{

using Text = std::array<char, 64>;

/// A status as text, where it stands in place of a result.
QByteArray failed(ViStatus status)
{
    return "VISA " + describe(status);
}

template <typename... Values>
QByteArray printed(const char* format, Values... values)
{
    char buffer[512] = {};
    const ViStatus status = viSPrintf(VI_NULL, reinterpret_cast<ViPBuf>(buffer), format, values...);
    return status == VI_SUCCESS ? QByteArray(buffer) : failed(status);
}

QByteArray shown(const Text& text)
{
    return QByteArray(text.data()) + '|';
}

template <typename Number>
QByteArray shown(Number number)
{
    return QByteArray::number(number) + '|';
}

/// What is scanned from the text into targets of the given types, each with "|" behind it.
template <typename... Targets>
QByteArray scanned(const char* text, const char* format, Targets... targets)
{
    const ViStatus status =
        viSScanf(VI_NULL, reinterpret_cast<ViConstBuf>(text), format, &targets...);
    return status == VI_SUCCESS ? (shown(targets) + ...) : failed(status);
}

ViStatus queryWithList(ViSession session, ViConstString write, ViConstString read, ...)
{
    va_list arguments;
    va_start(arguments, read);
    const ViStatus status = viVQueryf(session, write, read, arguments);
    va_end(arguments);
    return status;
}

} // namespace

/// Formats as the C functions of any VISA library take them.
class DemoFormattedIoTest : public QObject
{
    Q_OBJECT

private slots:
    void formats()
    {
        const QByteArray invalid = failed(VI_ERROR_INV_FMT);
        const QByteArray unsupported = failed(VI_ERROR_NSUP_FMT);
        const int least = std::numeric_limits<int>::min();
        const Text text = {};
        const ViUInt32 room = 4;
        const std::pair<QByteArray, QByteArray> rows[] = {
            {printed("FREQ %lf Hz;FREQ?", 2.5e9), "FREQ 2500000000.000000 Hz;FREQ?"},
            {printed("%f|%.2f|%8.1f|%-8.1f|%+.0f", 1.5, 2.345, 3.14, 3.14, 7.0),
             "1.500000|2.35|     3.1|3.1     |+7"},
            {printed("%e|%g|%G", 12345.678, 1e-9, 1e20), "1.234568e+04|1e-09|1E+20"},
            {printed("%*d|%.*f|%-*d|", 5, 42, 1, 2.25, 4, 7), "   42|2.2|7   |"},
            {printed("%d %i %05d %u %x %X %#o", -1, 2, 33, 4U, 255U, 255U, 8U),
             "-1 2 00033 4 ff FF 010"},
            {printed("%hd %ld %lld %Lf", 70000, -5L, 1LL << 40, 0.5L),
             "4464 -5 1099511627776 0.500000"},
            {printed("%s|%.3s|%8s|%-8s|%c%%", "abc", "abcdef", "right", "left", 'x'),
             "abc|abc|   right|left    |x%"},
            {printed("%3b|%*b", "abcdef", 2, "xyz"), "#13abc|#12xy"},
            {printed("a\\nb\\tc\\\\d\\101\\q"), "a\nb\tc\\dA\\q"},
            {printed("%s", QByteArray(300, 'y').constData()).right(3), "yyy"},
            {printed("%q", 1), invalid},
            {printed("%*d", least, 1), invalid},
            {printed("%.*d", 1 << 21, 1), invalid},
            {printed("%,3d", 1), unsupported},
            {printed("%@1d", 1), unsupported},
            {scanned("12,-7;1099511627776", "%d,%hd;%lld", 0, short(), 0LL),
             "12|-7|1099511627776|"},
            {scanned(" 2.5E+9\n -0.5 ff", "%lf%f%x", 0.0, 0.0F, 0U), "2.5e+09|-0.5|255|"},
            // 488.2: a decimal form for an integer, the non-decimal forms for any
            {scanned("1.0E2 #HFF #B101", "%d %lf %i", 0, 0.0, 0), "100|255|5|"},
            {scanned("123456", "%3d%*2d%d", 0, 0), "123|6|"},
            {scanned("  -113,\"Undefined header\"\n", "%s", text), "-113,\"Undefined|"},
            {scanned("abc123;rest of it", "%[a-z]%[^;];%t", text, text, text),
             "abc|123|rest of it|"},
            {scanned("one\ntwo", "%T%T", text, text), "one\n|two|"},
            {scanned("abcdef", "%#s%2c", room, text, text), "3|abc|de|"},
            {scanned("#15hello,7%", "%#b,%c%%", room + 1, text, text), "5|hello|7|"},
            {scanned("ON", "%d", 0), invalid},
            {scanned("12", "x%d", 0), invalid},
            {scanned("12", "%[1", text), invalid},
            {scanned("12", "%q", text), invalid},
            {scanned("#9", "%4b", text), invalid},
        };
        for (const auto& [actual, expected] : rows)
            QCOMPARE(actual, expected);
    }

    // A line feed of the format sends; what follows it waits, and a line feed in an argument does
    // not.
    void messagesOfOneFormat()
    {
        DemoSession instrument;
        viPrintf(instrument.session, "FREQ 1 GHZ\n%sPOW", "AM 10\n");
        QCOMPARE(demo("transcript"), QByteArray("> FREQ 1 GHZ\\n\n"));
        viPrintf(instrument.session, " 5%%\n");
        QCOMPARE(demo("transcript"), QByteArray("> FREQ 1 GHZ\\n\n> AM 10\\nPOW 5%\\n\n"));
        viPrintf(instrument.session, "OUTP ON");
        QCOMPARE(viFlush(instrument.session, VI_WRITE_BUF_DISCARD), VI_SUCCESS);
        viPrintf(instrument.session, "OUTP?");
        QCOMPARE(viFlush(instrument.session, VI_WRITE_BUF), VI_SUCCESS);
        QCOMPARE(instrument.read(), QByteArray("0"));
    }

    void leftoversStayInTheBuffer()
    {
        DemoSession instrument;
        Text reply = {};
        const auto scan = [&](const char* format) {
            viScanf(instrument.session, format, reply.data());
            return QByteArray(reply.data());
        };
        for (const ViUInt16 thrownAway : {VI_WRITE_BUF, VI_READ_BUF, VI_READ_BUF_DISCARD}) {
            viFlush(instrument.session, thrownAway);
            viPrintf(instrument.session, "*IDN?\n");
            QCOMPARE(scan("%6T"), QByteArray("Veltro"));
        }
        QCOMPARE(viFlush(instrument.session, VI_WRITE_BUF), VI_SUCCESS);
        QCOMPARE(scan(",%[^,]"), QByteArray("KLV-20G"));
        viSetAttribute(instrument.session, VI_ATTR_RD_BUF_OPER_MODE, VI_FLUSH_ON_ACCESS);
        QCOMPARE(scan(",%3s"), QByteArray("202"));
        QCOMPARE(instrument.query("*OPC?"), QByteArray("1"));
    }

    void argumentLists()
    {
        DemoSession instrument;
        char reply[64] = {};
        double frequencyHz = 0;
        QCOMPARE(queryWithList(instrument.session, "FREQ %lf %s;FREQ?;POW?\n", "%lf;%T", 5.0, "MHZ",
                               &frequencyHz, reply),
                 VI_SUCCESS);
        QCOMPARE(frequencyHz, 5e6);
        QCOMPARE(QByteArray(reply), QByteArray("0\n"));
    }
};

QTEST_GUILESS_MAIN(DemoFormattedIoTest)
#include "demo_formatted_io_test.moc"
