#include "tests/support/rows.h"
#include "tests/usb/usb_session.h"

#include <QProcess>

#include <grp.h>
#include <thread>
#include <unistd.h>

namespace
{

QByteArray textOf(int length)
{
    QByteArray text;
    for (int i = 0; i < length; ++i)
        text += static_cast<char>('a' + i % 26);
    return text;
}

/// A program of its own that opens an instrument, says how that went and waits for its input's end.
class OtherProgram
{
public:
    OtherProgram(const QByteArray& address, ViAccessMode mode, int waitMs = 0, int user = 0)
    {
        m_process.start(QCoreApplication::applicationFilePath(),
                        {"open", address, QString::number(mode), QString::number(waitMs),
                         QString::number(user)});
        m_process.waitForStarted();
    }
    ~OtherProgram()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    ViStatus status()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead())
            continue;
        bool isNumber = false;
        const ViStatus status = m_process.readLine().toInt(&isNumber);
        return isNumber ? status : VI_ERROR_SYSTEM_ERROR;
    }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    static int run(const QStringList& arguments)
    {
        const unsigned user = arguments[4].toUInt();
        if (user != 0 && (setgroups(0, nullptr) != 0 || setgid(user) != 0 || setuid(user) != 0))
            return 1;
        UsbSession session;
        const ViStatus status =
            session.open(arguments[1].toLatin1(), arguments[2].toUInt(), arguments[3].toUInt());
        std::printf("%d\n", status);
        std::fflush(stdout);
        while (std::getchar() != EOF)
            continue;
        return 0;
    }

private:
    QProcess m_process;
};

} // namespace

/// The library for instruments on USB over the kernel's driver.
class UsbLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_usb = std::make_unique<UsbSession>();
        QCOMPARE(m_usb->open(m_gadget.address()), VI_SUCCESS);
        QCOMPARE(m_usb->query("*CLS;*OPC?"), QByteArray("1\n"));
        m_gadget.takeTranscript();
    }
    void cleanup() { m_usb.reset(); }

    void findsWhatIsPluggedIn()
    {
        const auto row = namedRows([this](const QByteArray& expression, const QByteArray& found) {
            QByteArrayList serials;
            for (const QByteArray& address : m_usb->find(expression.constData()))
                serials << address.split(':').value(6);
            std::sort(serials.rbegin(), serials.rend());
            QCOMPARE(serials.join(' '), found);
        });
        const QByteArray both = "20215678 1111";
        row("all on USB", QByteArray("USB?*"), both);
        row("all instruments", QByteArray("?*INSTR"), both);
        row("one serial number", QByteArray("USB?*::1111::?*"), QByteArray("1111"));
        row("a range", QByteArray("USB0::?*::[2-3]?*::INSTR"), QByteArray("20215678"));
        row("an attribute", QByteArray("USB?*INSTR{VI_ATTR_MANF_ID==0x5645}"), both);
        row("another maker", QByteArray("USB?*INSTR{VI_ATTR_MANF_ID==1}"), QByteArray());
        row("another bus", QByteArray("GPIB?*INSTR"), QByteArray());
    }

    void searchDoesNotWaitForABusyInstrument()
    {
        m_gadget("reply *IDN? ->");
        ViStatus outcome = VI_SUCCESS;
        std::atomic<bool> isOver{false};
        m_usb->setTimeout(3000);
        std::thread reader([&] {
            m_usb->query("*IDN?");
            outcome = m_usb->status;
            isOver = true;
        });
        waitForMessage("*IDN?");
        QCOMPARE(UsbSession().find().size(), 2);
        const bool wasOver = isOver;
        reader.join();
        m_gadget("reply *IDN?");
        QVERIFY(!wasOver);
        QCOMPARE(outcome, VI_ERROR_TMO);
    }

    void replies()
    {
        const auto row = freshRows(this, [this](int length, int piece) {
            m_gadget("length " + QByteArray::number(length));
            QCOMPARE(m_usb->write("*IDN?\n"), VI_SUCCESS);
            QVERIFY(m_usb->read(static_cast<ViUInt32>(piece)) == textOf(length));
            QCOMPARE(m_usb->status, VI_SUCCESS);
            QCOMPARE(m_usb->query("*OPC?"), QByteArray("1\n"));
            QVERIFY(!m_gadget.takeTranscript().contains("clear"));
        });
        for (const int length :
             {1,    2,    55,   56,   57,   499,  500,  501,  511,  512,  513,   1012,  4079,
              4080, 4081, 4083, 4084, 4085, 4096, 8160, 8161, 8177, 8180, 65524, 65536, 1000000})
            row(QString::number(length), length, 1 << 21);
        for (const int piece : {1, 499, 500, 4079, 4080, 4081, 4096})
            row(QStringLiteral("in pieces of %1").arg(piece), piece * 20, piece);
    }

    void writes()
    {
        const auto row = freshRows(this, [this](int length) {
            const QByteArray blanks(length - 7, ' ');
            QCOMPARE(m_usb->query("*OPC? " + blanks), QByteArray("1\n"));
            QCOMPARE(m_gadget.takeTranscript().first(), "> *OPC? " + blanks + "\\n");
        });
        for (const int length :
             {7, 499, 500, 501, 511, 512, 513, 1012, 4083, 4084, 4085, 65524, 65536, 100000})
            row(QString::number(length), length);
    }

    void aReplyThatIsLateIsNeverTheNextOnes()
    {
        const auto row = freshRows(this, [this](const QByteArray& fault, int waitMs) {
            m_usb->setTimeout(300);
            m_gadget(fault);
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(m_usb->query("*IDN?"), QByteArray());
            QCOMPARE(m_usb->status, VI_ERROR_TMO);
            QVERIFY(timer.elapsed() >= 299);
            QTest::qWait(waitMs);
            m_gadget("reply *IDN?");
            m_usb->setTimeout(5000);
            QCOMPARE(m_usb->query("*OPC?"), QByteArray("1\n"));
            const QList<QByteArray> lines = m_gadget.takeTranscript();
            QCOMPARE(lines.indexOf("clear") + 1, lines.indexOf("> *OPC?\\n"));
        });
        row("never", QByteArray("reply *IDN? ->"), 0);
        row("late, asked again at once", QByteArray("late 600"), 0);
        row("late, asked again behind it", QByteArray("late 600"), 700);
    }

    void faultsAreErrorsAndPass()
    {
        const auto row = freshRows(
            this, [this](const QByteArray& fault, const QByteArray& message, ViStatus status) {
                m_usb->setTimeout(500);
                m_gadget(fault);
                QCOMPARE(m_usb->write(message + '\n'), VI_SUCCESS);
                if (message.endsWith('?'))
                    m_usb->read();
                else
                    m_usb->status = m_usb->write("*CLS\n");
                QCOMPARE(m_usb->status, status);
                m_usb->setTimeout(5000);
                QCOMPARE(m_usb->query("*OPC?"), QByteArray("1\n"));
                QCOMPARE(m_usb->query("*OPC?;*OPC?"), QByteArray("1;1\n"));
            });
        for (const char* header : {"tag", "id", "long", "short"})
            row(header, "header " + QByteArray(header), QByteArray("*IDN?"), VI_ERROR_IO);
        row("IN halted", QByteArray("halt in"), QByteArray("*IDN?"), VI_ERROR_IO);
        // What fetches a reply goes out, too.
        for (const QByteArray message : {"*IDN?", "*CLS"}) {
            row(QString("OUT halted after " + message), QByteArray("halt out"), message,
                VI_ERROR_IO);
            row(QString("takes nothing after " + message), QByteArray("deaf 1000"), message,
                VI_ERROR_TMO);
        }
    }

    void unpluggedInARead()
    {
        m_gadget("reply *IDN? ->");
        m_usb->setTimeout(20000);
        std::thread puller([this] {
            waitForMessage("*IDN?");
            m_gadget("unplug");
        });
        m_usb->query("*IDN?");
        puller.join();
        m_gadget("reply *IDN?");
        QCOMPARE(m_usb->status, VI_ERROR_CONN_LOST);
        QTRY_COMPARE(m_usb->find().size(), 1);
        QCOMPARE(UsbSession().open(m_gadget.address()), VI_ERROR_RSRC_NFOUND);
        staysLostAfterReplugging();
    }

    void unpluggedWhileIdle()
    {
        m_gadget("unplug");
        QTRY_COMPARE(m_usb->find().size(), 1);
        QCOMPARE(m_usb->write("*CLS\n"), VI_ERROR_CONN_LOST);
        staysLostAfterReplugging();
    }

    void oneLockBetweenPrograms()
    {
        QCOMPARE(OtherProgram(m_gadget.address(), VI_EXCLUSIVE_LOCK).status(),
                 VI_ERROR_RSRC_LOCKED);
        OtherProgram unlocked(m_gadget.address(), VI_NO_LOCK);
        QCOMPARE(unlocked.status(), VI_SUCCESS);
        // One that waits gets it.
        OtherProgram waiting(m_gadget.address(), VI_EXCLUSIVE_LOCK, 20000);
        m_usb->close();
        QCOMPARE(waiting.status(), VI_SUCCESS);
        QCOMPARE(m_usb->open(m_gadget.address()), VI_ERROR_RSRC_LOCKED);
        waiting.kill();
        QCOMPARE(m_usb->open(m_gadget.address()), VI_SUCCESS);
        QCOMPARE(m_usb->query("*OPC?"), QByteArray("1\n"));
    }

    void twoInstrumentsAtOnce()
    {
        UsbSession other;
        QCOMPARE(other.open(Gadget(1).address()), VI_SUCCESS);
        for (int i = 0; i < 20; ++i) {
            QCOMPARE(m_usb->write("*IDN?\n"), VI_SUCCESS);
            QCOMPARE(other.write("*IDN?\n"), VI_SUCCESS);
            QVERIFY(m_usb->read().contains(",KLV-20G,20215678,"));
            QVERIFY(other.read().contains(",KLV-6G,1111,"));
        }
    }

    void withoutRights()
    {
        m_usb->close();
        constexpr int nobody = 65534;
        QCOMPARE(OtherProgram(m_gadget.address(), VI_NO_LOCK, 0, nobody).status(),
                 VI_ERROR_NPERMISSION);
    }

    void whatTheBusCanDoBesides()
    {
        const auto row = freshRows(this, [this](int number) {
            const Gadget gadget(number);
            m_usb->close();
            QCOMPARE(m_usb->open(gadget.address()), VI_SUCCESS);
            QCOMPARE(m_usb->query("*CLS;*SRE 0;*OPC?"), QByteArray("1\n"));
            gadget.takeTranscript();
            ViUInt16 status = 0;
            QCOMPARE(m_usb->visa.viReadSTB(m_usb->session, &status), VI_SUCCESS);
            QCOMPARE(int(status), 0);
            m_usb->write("*IDN?\n");
            QCOMPARE(m_usb->visa.viReadSTB(m_usb->session, &status), VI_SUCCESS);
            QCOMPARE(int(status), 0x10);
            QVERIFY(m_usb->read().startsWith("Veltro"));
            QCOMPARE(m_usb->visa.viAssertTrigger(m_usb->session, VI_TRIG_PROT_DEFAULT), VI_SUCCESS);
            for (const ViUInt16 mode : {VI_GPIB_REN_ASSERT, VI_GPIB_REN_ASSERT_LLO,
                                        VI_GPIB_REN_ADDRESS_GTL, VI_GPIB_REN_DEASSERT})
                QCOMPARE(m_usb->visa.viGpibControlREN(m_usb->session, mode), VI_SUCCESS);
            QCOMPARE(m_usb->visa.viClear(m_usb->session), VI_SUCCESS);
            QCOMPARE(gadget.takeTranscript().mid(2).join(','),
                     QByteArray("trigger,remote 1,remote 1,lockout,local,remote 0,clear"));
        });
        row("without interrupt endpoint", 0);
        row("with interrupt endpoint", 1);
    }

    void requestsForServiceAreEvents()
    {
        m_usb->close();
        QCOMPARE(m_usb->open(Gadget(1).address()), VI_SUCCESS);
        const VisaLibrary& visa = m_usb->visa;
        QCOMPARE(m_usb->query("*CLS;*OPC?"), QByteArray("1\n"));
        QCOMPARE(visa.viEnableEvent(m_usb->session, VI_EVENT_SERVICE_REQ, VI_QUEUE, VI_NULL),
                 VI_SUCCESS);
        QCOMPARE(m_usb->write("*ESE 32;*SRE 32;NONSENSE\n"), VI_SUCCESS);
        ViEventType type = 0;
        ViEvent event = VI_NULL;
        QCOMPARE(visa.viWaitOnEvent(m_usb->session, VI_EVENT_SERVICE_REQ, 5000, &type, &event),
                 VI_SUCCESS);
        visa.viClose(event);
        ViUInt16 status = 0;
        QCOMPARE(visa.viReadSTB(m_usb->session, &status), VI_SUCCESS);
        QCOMPARE(int(status), 0x64);
        m_usb->write("*CLS;*SRE 0\n");
    }

private:
    /// Returns when the instrument has taken a message.
    void waitForMessage(const QByteArray& message)
    {
        while (!m_gadget("transcript").contains("> " + message))
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }

    void staysLostAfterReplugging()
    {
        m_gadget("plug");
        QTRY_COMPARE(m_usb->find().size(), 2);
        m_usb->query("*OPC?");
        QCOMPARE(m_usb->status, VI_ERROR_CONN_LOST);
        UsbSession again;
        QTRY_VERIFY(again.session != VI_NULL || again.open(m_gadget.address()) == VI_SUCCESS);
        QCOMPARE(again.query("*OPC?"), QByteArray("1\n"));
        m_usb->query("*OPC?");
        QCOMPARE(m_usb->status, VI_ERROR_CONN_LOST);
    }

    const Gadget m_gadget{0};
    std::unique_ptr<UsbSession> m_usb;
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.value(0) == "open")
        return OtherProgram::run(arguments);
    UsbLibraryTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "usb_library_test.moc"
