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
    /// The next call of this name has this result.
    void failNext(const char* call, long result)
    {
        m_failingCall = call;
        m_result = result;
    }

    QByteArray reply;
    QByteArray received;
    size_t longestAsked = 0;
    size_t longestWrite = std::string::npos;
    unsigned long storingRequest = USBTMC488_IOCTL_READ_STB;

private:
    std::optional<long> record(const QByteArray& call)
    {
        m_calls += call;
        if (call != m_failingCall)
            return std::nullopt;
        m_failingCall.clear();
        return m_result;
    }

    QList<QByteArray> m_calls;
    QByteArray m_failingCall;
    long m_result = 0;
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
    /// Of a reading, or else of a message.
    ViStatus statusOf(const QByteArray& call)
    {
        if (call != "read")
            return write("*IDN?");
        read();
        return status;
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
    void failuresDoNotReachTheNextMessage()
    {
        const auto check = [](const char* call, long result, ViStatus status, const char* calls) {
            Rig rig;
            rig.node.reply = "late";
            rig.node.failNext(call, result);
            QCOMPARE(rig.statusOf(call), status);
            QCOMPARE(rig.write("*OPC?"), VI_SUCCESS);
            QCOMPARE(rig.node.takeCalls(), QByteArray(calls));
            QCOMPARE(rig.write("*OPC?"), VI_SUCCESS);
            QCOMPARE(rig.node.takeCalls(), QByteArray("write"));
        };
        check("read", -ETIMEDOUT, VI_ERROR_TMO, "read, clear, write");
        check("read", 0, VI_ERROR_IO, "read, clear, write"); // not understood
        check("read", -EIO, VI_ERROR_IO, "read, clear, write");
        check("write", -ETIMEDOUT, VI_ERROR_TMO, "write, clear, write");
        check("read", -EPIPE, VI_ERROR_IO, "read, in-halt, clear, write");
        check("write", -EPIPE, VI_ERROR_IO, "write, out-halt, clear, write");
    }

    void clearsUntilTheInstrumentIsCleared()
    {
        Rig rig;
        rig.node.failNext("read", -ETIMEDOUT);
        rig.read();
        rig.node.failNext("clear", -ETIMEDOUT);
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
        first.node.failNext("read", -ETIMEDOUT);
        first.read();
        QCOMPARE(second.write("*IDN?", true), VI_SUCCESS);
        QCOMPARE(first.write("*IDN?"), VI_SUCCESS);
        QCOMPARE(first.node.takeCalls(), QByteArray("read, clear, write, write"));
    }

    void isLostForEver()
    {
        for (const auto& [call, error] : {std::pair("read", ENODEV),
                                          {"read", ESHUTDOWN},
                                          {"read", EPROTO},
                                          {"write", ENODEV},
                                          {"clear", ENODEV}}) {
            Rig rig;
            rig.node.failNext(call, -error);
            rig.state->isUnsettled = QByteArray(call) == "clear";
            QCOMPARE(rig.statusOf(call), VI_ERROR_CONN_LOST);
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

    void controlsRemoteOperation()
    {
        Rig rig;
        const char* const calls[] = {
            "remote 0",          "remote 1",          "local, remote 0", "remote 1",
            "remote 1, lockout", "remote 1, lockout", "local",           ""};
        for (ViUInt16 mode = 0; mode < std::size(calls); ++mode) {
            QCOMPARE(rig.transport.controlRemote(mode),
                     *calls[mode] ? VI_SUCCESS : VI_ERROR_INV_MODE);
            QCOMPARE(rig.node.takeCalls(), QByteArray(calls[mode]));
        }
    }

    void saysWhatTheInstrumentCannotDo()
    {
        Rig rig;
        rig.node.failNext("trigger", -EINVAL);
        QCOMPARE(rig.transport.trigger(), VI_ERROR_NSUP_OPER);
        QCOMPARE(rig.transport.trigger(), VI_SUCCESS);
    }
};

QTEST_GUILESS_MAIN(TransportTest)
#include "transport_test.moc"
