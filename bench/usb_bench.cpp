// What the library for instruments on USB costs over the driver: ratios within one run.
#include "bench/timing.h"
#include "connection/connection.h"
#include "connection/hot_plug_watch.h"
#include "link/pause.h"
#include "tests/support/panel_rig.h"
#include "tests/usb/usb_session.h"

#include <QApplication>
#include <QThread>

#include <clocale>
#include <cstdio>
#include <fcntl.h>
#include <linux/usb/tmc.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace
{

/// The driver's node, as a plain program uses it.
class Node
{
public:
    Node() : m_file(open("/dev/usbtmc0", O_RDWR | O_CLOEXEC)) { ioctl(m_file, USBTMC_IOCTL_CLEAR); }
    ~Node() { close(m_file); }
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    void send(const QByteArray& message)
    {
        if (::write(m_file, message.constData(), static_cast<size_t>(message.size())) < 0)
            qFatal("the node does not take %s", message.constData());
        if (message.contains('?') && ::read(m_file, m_reply, sizeof m_reply) <= 0)
            qFatal("the node does not answer %s", message.constData());
    }

private:
    int m_file;
    char m_reply[4080];
};

void printComparison(const char* what, const Comparison& compared)
{
    std::printf("%-44s %9.0f us, bare %9.0f us, ratio %.2f\n", what, compared.us, compared.bareUs,
                compared.us / compared.bareUs);
    std::fflush(stdout);
}

void measureQuery()
{
    constexpr int queries = 40;
    UsbSession usb;
    usb.open(Gadget(0).address());
    char reply[256];
    const auto query = [&] { usb.visa.viQueryf(usb.session, "FREQ?\n", "%255T", reply); };
    Node node;
    printComparison("query",
                    comparedInTurns(
                        25, [&] { return microsecondsOf(queries, query); },
                        [&] { return microsecondsOf(queries, [&] { node.send("FREQ?\n"); }); }));
}

void measureSearch()
{
    UsbSession usb;
    std::printf("%-44s %9.0f us\n", "search of two instruments",
                microsecondsEach(20, [&] { usb.find(); }));
}

/// Drawing is measured by itself: an emulated processor makes it many times dearer than the bus.
void measureConnecting(const Gadget& gadget, bool isDrawn)
{
    pauses().share = 1.0; // as the program
    StartOptions options = PanelRig::defaultOptions();
    options.visaLibrary = QStringLiteral(KLV_USB_LIBRARY);
    options.isClean = true;
    gadget.plugInAnew();
    PanelRig rig(options);
    rig.window().setUpdatesEnabled(isDrawn);
    // Once a person has disconnected, plugging in connects no more.
    rig.connectDevice();
    rig.click("connect");
    auto& connection = *rig.window().findChild<Connection*>();
    // What a new device keeps the machine busy with is not to be measured.
    constexpr unsigned long settlingMs = 500;
    // As the window's own, which is done with the events by then.
    const auto watch = createBusWatch();
    const auto plugIn = [&] {
        QEventLoop loop;
        QObject::connect(watch.get(), &HotPlugWatch::devicesChanged, &loop, &QEventLoop::quit);
        gadget.plugInAnew();
        loop.exec();
        QThread::msleep(settlingMs);
    };
    QList<QByteArray> sent;
    int pausesMs = 0;
    const auto connect = [&] {
        plugIn();
        pausesMs = pauses().totalMs;
        QEventLoop loop;
        QObject::connect(&connection, &Connection::ready, &loop, &QEventLoop::quit);
        const double us = microsecondsOf(1, [&] {
            QTimer::singleShot(0, &loop, [&] { rig.get<QPushButton>("connect").click(); });
            loop.exec();
        });
        pausesMs = pauses().totalMs - pausesMs;
        sent.clear();
        for (const QByteArray& line : gadget.takeTranscript())
            if (line.startsWith("> "))
                sent << line.mid(2).replace("\\n", "\n");
        rig.click("connect");
        return us;
    };
    const auto bare = [&] {
        plugIn();
        return pausesMs * 1000 + microsecondsOf(1, [&] {
                   Node node;
                   for (const QByteArray& message : sent)
                       node.send(message);
               });
    };
    printComparison(isDrawn ? "connecting, and its messages and pauses" : "the same, nothing drawn",
                    comparedInTurns(9, connect, bare));
    std::printf("    %d messages, pauses of %d ms\n", sent.size(), pausesMs);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const Gadget gadget(0);
    gadget.plugInAnew();
    measureQuery();
    measureSearch();
    // With two of them a person has to choose.
    Gadget(1).unplug();
    for (const bool isDrawn : {true, false})
        measureConnecting(gadget, isDrawn);
    return 0;
}
