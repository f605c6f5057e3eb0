#include "tests/demo/demo_session.h"

#include <cstdarg>
#include <limits>

class DemoFormattedIoTest : public QObject
{
    Q_OBJECT

private slots:
    void print();
    void scanNumbers();
    void scanTexts();
    void refusedFormats();
    void messagesOfOneFormat();
    void queryKeepsItsShape();
    void widthBoundsTheReply();
    void leftoversStayInTheBuffer();
    void argumentLists();
    void rawAndBuffered();
    void files();
};

namespace
{

template <typename... Values>
QByteArray printed(const char* format, Values... values)
{
    char buffer[512] = {};
    const ViStatus status = viSPrintf(VI_NULL, reinterpret_cast<ViPBuf>(buffer), format, values...);
    return status == VI_SUCCESS ? QByteArray(buffer) : "VISA " + QByteArray::number(status);
}

template <typename... Targets>
ViStatus scan(const char* text, const char* format, Targets... targets)
{
    return viSScanf(VI_NULL, reinterpret_cast<ViConstBuf>(text), format, targets...);
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

void DemoFormattedIoTest::print()
{
    const struct {
        QByteArray actual;
        const char* expected;
    } rows[] = {
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
    };
    for (const auto& row : rows)
        QCOMPARE(row.actual, QByteArray(row.expected));
}

void DemoFormattedIoTest::scanNumbers()
{
    int integer = 0;
    short shortInteger = 0;
    long long longInteger = 0;
    unsigned hexadecimal = 0;
    double real = 0;
    float single = 0;
    QCOMPARE(scan("12,-7;1099511627776", "%d,%hd;%lld", &integer, &shortInteger, &longInteger),
             VI_SUCCESS);
    QCOMPARE(integer, 12);
    QCOMPARE(shortInteger, short(-7));
    QCOMPARE(longInteger, 1099511627776LL);
    QCOMPARE(scan(" 2.5E+9\n -0.5 ff", "%lf%f%x", &real, &single, &hexadecimal), VI_SUCCESS);
    QCOMPARE(real, 2.5e9);
    QCOMPARE(single, -0.5F);
    QCOMPARE(hexadecimal, 255U);
    // 488.2: a decimal form for an integer, the non-decimal forms for any
    QCOMPARE(scan("1.0E2 #HFF #B101", "%d %lf %i", &integer, &real, &hexadecimal), VI_SUCCESS);
    QCOMPARE(integer, 100);
    QCOMPARE(real, 255.0);
    QCOMPARE(hexadecimal, 5U);
    QCOMPARE(scan("123456", "%3d%*2d%d", &integer, &hexadecimal), VI_SUCCESS);
    QCOMPARE(integer, 123);
    QCOMPARE(hexadecimal, 6U);
}

void DemoFormattedIoTest::scanTexts()
{
    char first[64] = {};
    char second[64] = {};
    ViUInt32 room = 4;
    QCOMPARE(scan("  -113,\"Undefined header\"\n", "%s", first), VI_SUCCESS);
    QCOMPARE(QByteArray(first), QByteArray("-113,\"Undefined"));
    QCOMPARE(scan("abc123;rest of it", "%[a-z]%[^;];%t", first, second, second + 20), VI_SUCCESS);
    QCOMPARE(QByteArray(first), QByteArray("abc"));
    QCOMPARE(QByteArray(second), QByteArray("123"));
    QCOMPARE(QByteArray(second + 20), QByteArray("rest of it"));
    QCOMPARE(scan("one\ntwo", "%T%T", first, second), VI_SUCCESS);
    QCOMPARE(QByteArray(first), QByteArray("one\n"));
    QCOMPARE(QByteArray(second), QByteArray("two"));
    QCOMPARE(scan("abcdef", "%#s%2c", &room, first, second), VI_SUCCESS);
    QCOMPARE(QByteArray(first), QByteArray("abc"));
    QCOMPARE(room, 3U);
    QCOMPARE(QByteArray(second, 2), QByteArray("de"));
    room = sizeof first;
    QCOMPARE(scan("#15hello,7%", "%#b,%c%%", &room, first, second), VI_SUCCESS);
    QCOMPARE(QByteArray(first, static_cast<int>(room)), QByteArray("hello"));
    QCOMPARE(second[0], '7');
}

void DemoFormattedIoTest::refusedFormats()
{
    int integer = 0;
    char text[8] = {};
    QCOMPARE(printed("%q", 1), "VISA " + QByteArray::number(VI_ERROR_INV_FMT));
    const int least = std::numeric_limits<int>::min();
    QCOMPARE(printed("%*d", least, 1), "VISA " + QByteArray::number(VI_ERROR_INV_FMT));
    QCOMPARE(printed("%.*d", 1 << 21, 1), "VISA " + QByteArray::number(VI_ERROR_INV_FMT));
    QCOMPARE(printed("%,3d", 1), "VISA " + QByteArray::number(VI_ERROR_NSUP_FMT));
    QCOMPARE(printed("%@1d", 1), "VISA " + QByteArray::number(VI_ERROR_NSUP_FMT));
    QCOMPARE(scan("ON", "%d", &integer), VI_ERROR_INV_FMT);
    QCOMPARE(scan("12", "x%d", &integer), VI_ERROR_INV_FMT);
    QCOMPARE(scan("12", "%[1", text), VI_ERROR_INV_FMT);
    QCOMPARE(scan("12", "%q", text), VI_ERROR_INV_FMT);
    QCOMPARE(scan("#9", "%4b", text), VI_ERROR_INV_FMT);
}

// A line feed of the format sends; what follows it waits, and a line feed in an argument does not.
void DemoFormattedIoTest::messagesOfOneFormat()
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

void DemoFormattedIoTest::queryKeepsItsShape()
{
    DemoSession instrument;
    char reply[70] = {};
    QCOMPARE(viQueryf(instrument.session, "*OPC?", "%T", reply), VI_SUCCESS);
    QCOMPARE(QByteArray(reply), QByteArray("1\n"));
    QCOMPARE(viQueryf(instrument.session, "POW %lf;POW?\n", "%T", -7.5, reply), VI_SUCCESS);
    QCOMPARE(QByteArray(reply), QByteArray("-7.5\n"));
    QCOMPARE(demo("transcript"),
             QByteArray("> *OPC?\n< 1\\n\n> POW -7.500000;POW?\\n\n< -7.5\\n\n"));
    double first = 0;
    double second = 0;
    QCOMPARE(viQueryf(instrument.session, "POW?\n", "%lf", &first), VI_SUCCESS);
    QCOMPARE(viQueryf(instrument.session, "FREQ?\n", "%lf", &second), VI_SUCCESS);
    QCOMPARE(first, -7.5);
    QCOMPARE(second, 1e9);
}

void DemoFormattedIoTest::widthBoundsTheReply()
{
    DemoSession instrument;
    QByteArray buffer(70000, '#');
    for (const char* fault : {"fault 1 length 200000", "fault 1 endless"}) {
        buffer.fill('#');
        demo(fault);
        QCOMPARE(viQueryf(instrument.session, "*IDN?\n", "%65535T", buffer.data()), VI_SUCCESS);
        QCOMPARE(buffer.indexOf('\0'), 65535);
        QCOMPARE(buffer.at(65536), '#');
        viFlush(instrument.session, VI_READ_BUF);
    }
    QCOMPARE(instrument.query("*OPC?"), QByteArray("1"));
    demo("fault 2 reply a\\x00b\\xFFc");
    QCOMPARE(viPrintf(instrument.session, "*IDN?\n"), VI_SUCCESS);
    QCOMPARE(viScanf(instrument.session, "%8t", buffer.data()), VI_SUCCESS);
    QCOMPARE(buffer.left(6), QByteArray("a\0b\xFF"
                                        "c\0",
                                        6));
}

void DemoFormattedIoTest::leftoversStayInTheBuffer()
{
    DemoSession instrument;
    char reply[64] = {};
    viPrintf(instrument.session, "*IDN?\n");
    QCOMPARE(viScanf(instrument.session, "%6T", reply), VI_SUCCESS);
    QCOMPARE(QByteArray(reply), QByteArray("Veltro"));
    QCOMPARE(viScanf(instrument.session, ",%[^,]", reply), VI_SUCCESS);
    QCOMPARE(QByteArray(reply), QByteArray("KLV-20G"));
    viSetAttribute(instrument.session, VI_ATTR_RD_BUF_OPER_MODE, VI_FLUSH_ON_ACCESS);
    QCOMPARE(viScanf(instrument.session, ",%3s", reply), VI_SUCCESS);
    QCOMPARE(QByteArray(reply), QByteArray("202"));
    QCOMPARE(instrument.query("*OPC?"), QByteArray("1"));
}

void DemoFormattedIoTest::argumentLists()
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

void DemoFormattedIoTest::rawAndBuffered()
{
    DemoSession instrument;
    ViUInt32 count = 0;
    ViByte bytes[64] = {};
    const auto text = [&] {
        return QByteArray(reinterpret_cast<char*>(bytes), static_cast<int>(count));
    };
    const auto send = [&](const char* message) {
        return viWrite(instrument.session, reinterpret_cast<ViConstBuf>(message),
                       static_cast<ViUInt32>(qstrlen(message)), &count);
    };
    QCOMPARE(send("*IDN?"), VI_SUCCESS);
    QCOMPARE(count, 5U);
    QCOMPARE(viRead(instrument.session, bytes, 6, &count), VI_SUCCESS_MAX_CNT);
    QCOMPARE(text(), QByteArray("Veltro"));
    viSetAttribute(instrument.session, VI_ATTR_TERMCHAR, ',');
    viSetAttribute(instrument.session, VI_ATTR_TERMCHAR_EN, VI_TRUE);
    QCOMPARE(viRead(instrument.session, bytes, 1, &count), VI_SUCCESS_TERM_CHAR);
    QCOMPARE(viRead(instrument.session, bytes, 64, &count), VI_SUCCESS_TERM_CHAR);
    QCOMPARE(text(), QByteArray("KLV-20G,"));
    viSetAttribute(instrument.session, VI_ATTR_TERMCHAR_EN, VI_FALSE);
    QCOMPARE(viRead(instrument.session, bytes, 64, &count), VI_SUCCESS);
    QCOMPARE(text(), QByteArray("20215678,2.7.1\n"));
    QCOMPARE(viRead(instrument.session, bytes, 64, &count), VI_ERROR_TMO);
    QCOMPARE(count, 0U);

    viSetAttribute(instrument.session, VI_ATTR_SEND_END_EN, VI_FALSE);
    send("*OP");
    viSetAttribute(instrument.session, VI_ATTR_SEND_END_EN, VI_TRUE);
    send("C?");
    QCOMPARE(viBufRead(instrument.session, bytes, 1, &count), VI_SUCCESS_MAX_CNT);
    QCOMPARE(viBufRead(instrument.session, bytes + 1, 9, &count), VI_SUCCESS);
    QCOMPARE(QByteArray(reinterpret_cast<char*>(bytes), 2), QByteArray("1\n"));
    QCOMPARE(instrument.errors(), QByteArray("-420"));
}

void DemoFormattedIoTest::files()
{
    DemoSession instrument;
    QTemporaryDir folder;
    const QByteArray name = folder.filePath("message.txt").toLocal8Bit();
    QFile file(QString::fromLocal8Bit(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("FREQ 3 GHZ;FREQ?\n");
    file.close();
    ViUInt32 count = 0;
    QCOMPARE(viWriteFromFile(instrument.session, name.constData(), 100, &count), VI_SUCCESS);
    QCOMPARE(count, 17U);
    QCOMPARE(viReadToFile(instrument.session, name.constData(), 100, &count), VI_SUCCESS);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("3000000000\n"));
    QCOMPARE(viWriteFromFile(instrument.session, "/no/such/file", 9, &count), VI_ERROR_FILE_ACCESS);
}

QTEST_GUILESS_MAIN(DemoFormattedIoTest)
#include "demo_formatted_io_test.moc"
