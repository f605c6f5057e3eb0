#include "usbtmc/service_watch.h"

#include <QtTest>

#include <arpa/inet.h>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

namespace
{

constexpr int longestWaitMs = 20000;

/// A node whose descriptor has urgent data when the instrument asks for service, as the driver's.
class AskingNode : public TmcNode
{
public:
    AskingNode()
    {
        const int listener = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* anyAddress = reinterpret_cast<sockaddr*>(&address);
        bind(listener, anyAddress, length);
        getsockname(listener, anyAddress, &length);
        listen(listener, 1);
        connect(m_instrument, anyAddress, length);
        m_descriptor = accept(listener, nullptr, nullptr);
        close(listener);
    }
    ~AskingNode() override
    {
        close(m_instrument);
        close(m_descriptor);
    }

    void ask(char statusByte) { QCOMPARE(send(m_instrument, &statusByte, 1, MSG_OOB), 1); }
    void unplug() { shutdown(m_instrument, SHUT_RDWR); }
    int descriptor() const { return m_descriptor; }

    long write(const void*, size_t) override { return -ENODEV; }
    long read(void*, size_t) override { return -ENODEV; }
    long control(unsigned long, void* argument) override
    {
        return recv(m_descriptor, argument, 1, MSG_OOB) == 1 ? 0 : -ENODEV;
    }

private:
    const int m_instrument = socket(AF_INET, SOCK_STREAM, 0);
    int m_descriptor = -1;
};

} // namespace

/// Requests for service, from a socket that tells them as the driver does.
class ServiceWatchTest : public QObject
{
    Q_OBJECT

private slots:
    void tellsEveryRequest()
    {
        AskingNode node;
        QSemaphore requests;
        ServiceWatch watch(node, node.descriptor(), [&] { requests.release(); });
        QCOMPARE(watch.takeStatusByte(), -1);
        for (const char statusByte : {'A', 'P'}) {
            node.ask(statusByte);
            QVERIFY(requests.tryAcquire(1, longestWaitMs));
            QCOMPARE(watch.takeStatusByte(), int(statusByte));
            QCOMPARE(watch.takeStatusByte(), -1);
        }
    }

    void endsWithTheInstrument()
    {
        AskingNode node;
        ServiceWatch watch(node, node.descriptor(), [] { QFAIL("no request"); });
        node.unplug();
    }

    void mayBeEndedByWhatItCalls()
    {
        AskingNode node;
        QSemaphore ended;
        std::unique_ptr<ServiceWatch> watch;
        QSemaphore isMade;
        watch = std::make_unique<ServiceWatch>(node, node.descriptor(), [&] {
            isMade.acquire();
            watch.reset();
            ended.release();
        });
        isMade.release();
        node.ask('A');
        QVERIFY(ended.tryAcquire(1, longestWaitMs));
    }
};

QTEST_GUILESS_MAIN(ServiceWatchTest)
#include "service_watch_test.moc"
