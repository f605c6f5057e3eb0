#include "tests/support/rows.h"
#include "usbtmc/transport.h"

#include <QtTest>

#include <cerrno>
#include <linux/usb/tmc.h>
#include <map>
#include <optional>
#include <sys/ioctl.h>

namespace
{

const std::map<unsigned long, const char*> requestNames = {
    {USBTMC_IOCTL_SET_TIMEOUT, "time-out"},  {USBTMC_IOCTL_CLEAR, "clear"},
    {USBTMC_IOCTL_CLEAR_IN_HALT, "in-halt"}, {USBTMC_IOCTL_CLEAR_OUT_HALT, "out-halt"},
    {USBTMC_IOCTL_EOM_ENABLE, "end"},        {USBTMC488_IOCTL_READ_STB, "status"},
    {USBTMC_IOCTL_GET_STB, "status again"},  {USBTMC488_IOCTL_REN_CONTROL, "remote"},
    {USBTMC488_IOCTL_GOTO_LOCAL, "local"},   {USBTMC488_IOCTL_LOCAL_LOCKOUT, "lockout"},
    {USBTMC488_IOCTL_TRIGGER, "trigger"},
};

/// An instrument that answers with the bytes it was given, and records what it is asked for.
class FakeNode : public TmcNode
{
public:
    long write(const void* bytes, size_t count) override
    {
        if (const auto failure = record("write"))
            return *failure;
        const size_t taken = std::min(count, longestWrite);
        received.append(static_cast<const char*>(bytes), static_cast<int>(taken));
        return static_cast<long>(taken);
    }
    long read(void* bytes, size_t count) override
    {
        if (const auto failure = record("read"))
            return *failure;
        longestAsked = std::max(longestAsked, count);
        const QByteArray piece = reply.left(static_cast<int>(count));
        reply.remove(0, piece.size());
        std::copy(piece.begin(), piece.end(), static_cast<char*>(bytes));
        return piece.size();
    }
    long control(unsigned long request, void* argument) override
    {
        if (request == USBTMC_IOCTL_MSG_IN_ATTR) {
            *static_cast<unsigned char*>(argument) = reply.isEmpty() ? 1 : 0;
            return 0;
        }
        QByteArray name = requestNames.at(request);
        if (request == USBTMC_IOCTL_SET_TIMEOUT)
            name += ' ' + QByteArray::number(*static_cast<ViUInt32*>(argument));
        else if (request == USBTMC_IOCTL_EOM_ENABLE || request == USBTMC488_IOCTL_REN_CONTROL)
            name += ' ' + QByteArray::number(*static_cast<unsigned char*>(argument));
        else if (request == storingRequest)
            *static_cast<unsigned char*>(argument) = 0x44;
        return record(name).value_or(0);
    }

    /// What was asked since the last time.
    QByteArray takeCalls() { return std::exchange(m_calls, {}).join(", "); }

    QByteArray reply;
    QByteArray received;
    size_t longestAsked = 0;
    size_t longestWrite = std::string::npos;
    unsigned long storingRequest = USBTMC488_IOCTL_READ_STB;
    QByteArray failingCall; ///< the next one of this name, with this result
    long result = 0;

private:
    std::optional<long> record(const QByteArray& call)
    {
        m_calls += call;
        if (call != failingCall)
            return std::nullopt;
        failingCall.clear();
        return result;
    }

    QList<QByteArray> m_calls;
};

/// A session with the fake instrument, already settled.
struct Rig {
    Rig()
    {
        transport.settle();
        node.takeCalls();
    }
    ViStatus write(const char* message) { return transport.write(message, true); }
    QByteArray read(size_t count = 100000, int stopCharacter = -1)
    {
        std::string bytes;
        status = transport.read(count, stopCharacter, bytes);
        return QByteArray::fromStdString(bytes);
    }

    FakeNode node;
    std::shared_ptr<NodeState> state = std::make_shared<NodeState>();
    Transport transport{node, state};
    ViStatus status = VI_SUCCESS; ///< of the last reading
};

} // namespace

/// What the driver leaves to its callers, over a node that fails as the driver does.
class TransportTest : public QObject
{
    Q_OBJECT

private slots:
    void failuresDoNotReachTheNextMessage_data()
    {
        testColumns<QByteArray, int, ViStatus, QByteArray>("call", "result", "status", "calls");
        const QByteArray read = "read", write = "write";
        const QByteArray settling = ", clear, write";
        testRow("no reply in time", read, -ETIMEDOUT, VI_ERROR_TMO, read + settling);
        testRow("reply not understood", read, 0, VI_ERROR_IO, read + settling);
        testRow("reply broken off", read, -EIO, VI_ERROR_IO, read + settling);
        testRow("message not taken", write, -ETIMEDOUT, VI_ERROR_TMO, write + settling);
        testRow("reply halted", read, -EPIPE, VI_ERROR_IO,
                QByteArray("read, in-halt, clear, write"));
        testRow("message halted", write, -EPIPE, VI_ERROR_IO,
                QByteArray("write, out-halt, clear, write"));
    }

    void failuresDoNotReachTheNextMessage()
    {
        QFETCH(QByteArray, call);
        QFETCH(int, result);
        QFETCH(ViStatus, status);
        Rig rig;
        rig.node.reply = "late";
        rig.node.failingCall = call;
        rig.node.result = result;
        if (call == "read")
            rig.read();
        QCOMPARE(call == "read" ? rig.status : rig.write("*IDN?"), status);
        QCOMPARE(rig.write("*OPC?"), VI_SUCCESS);
        QTEST(rig.node.takeCalls(), "calls");
        QCOMPARE(rig.write("*OPC?"), VI_SUCCESS);
        QCOMPARE(rig.node.takeCalls(), QByteArray("write"));
    }

    void clearsUntilTheInstrumentIsCleared()
    {
        Rig rig;
        rig.node.failingCall = "read";
        rig.node.result = -ETIMEDOUT;
        rig.read();
        rig.node.failingCall = "clear";
        QCOMPARE(rig.write("*IDN?"), VI_ERROR_TMO);
        QCOMPARE(rig.write("*IDN?"), VI_SUCCESS);
        QCOMPARE(rig.node.takeCalls(), QByteArray("read, clear, clear, write"));
    }

    void sessionsOfANodeSettleItOnce()
    {
        Rig first;
        Transport second(first.node, first.state);
        QCOMPARE(second.settle(), VI_SUCCESS);
        QCOMPARE(first.node.takeCalls(), QByteArray());
        first.node.failingCall = "read";
        first.node.result = -ETIMEDOUT;
        first.read();
        QCOMPARE(second.write("*IDN?", true), VI_SUCCESS);
        QCOMPARE(first.write("*IDN?"), VI_SUCCESS);
        QCOMPARE(first.node.takeCalls(), QByteArray("read, clear, write, write"));
    }

    void isLostForEver_data()
    {
        testColumns<QByteArray, int>("call", "error");
        testRow("reading", QByteArray("read"), ENODEV);
        testRow("pulled while reading", QByteArray("read"), ESHUTDOWN);
        testRow("pulled in a transfer", QByteArray("read"), EPROTO);
        testRow("writing", QByteArray("write"), ENODEV);
        testRow("clearing", QByteArray("clear"), ENODEV);
    }

    void isLostForEver()
    {
        QFETCH(QByteArray, call);
        QFETCH(int, error);
        Rig rig;
        rig.node.failingCall = call;
        rig.node.result = -error;
        if (call == "clear")
            rig.state->isUnsettled = true;
        if (call == "read")
            rig.read();
        QCOMPARE(call == "read" ? rig.status : rig.write("*IDN?"), VI_ERROR_CONN_LOST);
        QVERIFY(rig.transport.isLost());
        rig.node.takeCalls();
        ViUInt16 byte = 0;
        rig.node.reply = "back again";
        QCOMPARE(rig.read(), QByteArray());
        QCOMPARE(rig.status, VI_ERROR_CONN_LOST);
        for (const ViStatus status :
             {rig.write("*IDN?"), rig.transport.clear(), rig.transport.trigger(),
              rig.transport.setTimeout(500), rig.transport.readStatusByte(byte)})
            QCOMPARE(status, VI_ERROR_CONN_LOST);
        QCOMPARE(rig.node.takeCalls(), QByteArray());
    }

    void readsLongRepliesInPieces()
    {
        Rig rig;
        for (const int length : {1, 4079, 4080, 4081, 4083, 8177, 65536, 100000}) {
            for (int i = 0; i < length; ++i)
                rig.node.reply += static_cast<char>('a' + i % 26);
            const QByteArray reply = rig.node.reply;
            QCOMPARE(rig.read(), reply);
            QCOMPARE(rig.status, VI_SUCCESS);
        }
        QVERIFY(rig.node.longestAsked <= 4080);
    }

    void readsAsMuchAsIsWanted()
    {
        Rig rig;
        rig.node.reply = "one,two,three\n";
        QCOMPARE(rig.read(2), QByteArray("on"));
        QCOMPARE(rig.status, VI_SUCCESS_MAX_CNT);
        QCOMPARE(rig.read(100, ','), QByteArray("e,"));
        QCOMPARE(rig.status, VI_SUCCESS_TERM_CHAR);
        QCOMPARE(rig.read(1, ','), QByteArray("t"));
        QCOMPARE(rig.read(100, ','), QByteArray("wo,"));
        QCOMPARE(rig.read(100, '\n'), QByteArray("three\n"));
        QCOMPARE(rig.status, VI_SUCCESS);
    }

    void dropsAnUnreadRest()
    {
        Rig rig;
        for (const bool isCleared : {false, true}) {
            rig.node.reply = "one,two";
            QCOMPARE(rig.read(100, ','), QByteArray("one,"));
            QCOMPARE(isCleared ? rig.transport.clear() : rig.write("*IDN?"), VI_SUCCESS);
            rig.node.reply = "next";
            QCOMPARE(rig.read(), QByteArray("next"));
            QCOMPARE(rig.status, VI_SUCCESS);
        }
    }

    void writesAllInAsManyPartsAsAreTaken()
    {
        Rig rig;
        rig.node.longestWrite = 4;
        QCOMPARE(rig.transport.write("*ID", false), VI_SUCCESS);
        QCOMPARE(rig.transport.write("N?;*OP", false), VI_SUCCESS);
        QCOMPARE(rig.transport.write("C?", true), VI_SUCCESS);
        QCOMPARE(rig.node.received, QByteArray("*IDN?;*OPC?"));
        QCOMPARE(rig.node.takeCalls(), QByteArray("end 0, write, write, write, end 1, write"));
    }

    void knowsNoShorterTimeout()
    {
        Rig rig;
        for (const ViUInt32 timeoutMs : {0U, 99U, 100U, 2000U, 2000U, VI_TMO_INFINITE})
            QCOMPARE(rig.transport.setTimeout(timeoutMs), VI_SUCCESS);
        QCOMPARE(rig.node.takeCalls(),
                 QByteArray("time-out 100, time-out 2000, time-out 4294967295"));
    }

    void readsTheStatusByteOfEveryKernel()
    {
        for (const unsigned long request : {USBTMC488_IOCTL_READ_STB, USBTMC_IOCTL_GET_STB}) {
            Rig rig;
            rig.node.storingRequest = request;
            ViUInt16 status = 0;
            QCOMPARE(rig.transport.readStatusByte(status), VI_SUCCESS);
            QCOMPARE(int(status), 0x44);
        }
    }

    void controlsRemoteOperation_data()
    {
        testColumns<int, ViStatus, QByteArray>("mode", "status", "calls");
        testRow("off", 0, VI_SUCCESS, QByteArray("remote 0"));
        testRow("on", 1, VI_SUCCESS, QByteArray("remote 1"));
        testRow("off, then local", 2, VI_SUCCESS, QByteArray("local, remote 0"));
        testRow("on, addressed", 3, VI_SUCCESS, QByteArray("remote 1"));
        testRow("on, keys locked", 4, VI_SUCCESS, QByteArray("remote 1, lockout"));
        testRow("on, addressed, keys locked", 5, VI_SUCCESS, QByteArray("remote 1, lockout"));
        testRow("local", 6, VI_SUCCESS, QByteArray("local"));
        testRow("unknown", 7, VI_ERROR_INV_MODE, QByteArray());
    }

    void controlsRemoteOperation()
    {
        QFETCH(int, mode);
        Rig rig;
        QTEST(rig.transport.controlRemote(static_cast<ViUInt16>(mode)), "status");
        QTEST(rig.node.takeCalls(), "calls");
    }

    void saysWhatTheInstrumentCannotDo()
    {
        Rig rig;
        rig.node.failingCall = "trigger";
        rig.node.result = -EINVAL;
        QCOMPARE(rig.transport.trigger(), VI_ERROR_NSUP_OPER);
        QCOMPARE(rig.transport.trigger(), VI_SUCCESS);
    }
};

QTEST_GUILESS_MAIN(TransportTest)
#include "transport_test.moc"
