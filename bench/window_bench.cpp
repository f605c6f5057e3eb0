// What the window costs: start, a committed frequency, connecting, doing nothing.
#include "bench/timing.h"
#include "connection/connection.h"
#include "link/pause.h"
#include "tests/support/panel_rig.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>

#include <clocale>
#include <cstdio>
#include <ctime>

namespace
{
double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0.0;
    return file.readAll().split(' ').value(1).toDouble() * 4096.0 / 1e6;
}

/// The messages and searches of a connection, by bare VISA calls in the same order.
double bareConnectionMs(Demo& demo, const QStringList& sent, ViSession manager, VisaLibrary& visa)
{
    QElapsedTimer timer;
    timer.start();
    ViSession session = VI_NULL;
    visa.viOpen(manager, "USB0::0x5645::0x0040::20215678::0::INSTR", VI_EXCLUSIVE_LOCK, 2000,
                &session);
    std::vector<char> reply(65536);
    for (const QString& line : sent) {
        QByteArray message = line.toLatin1().replace("\\n", "\n");
        const bool isOneCall = message.startsWith("SYST") || message.contains(";") ||
                               message.startsWith("SERV") || message.startsWith("MEM:DAC");
        if (isOneCall) {
            visa.viQueryf(session, message.constData(), "%65535T", reply.data());
            continue;
        }
        visa.viPrintf(session, message.constData());
        if (message.contains('?'))
            visa.viScanf(session, "%65535T", reply.data());
    }
    const double ms = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    visa.viClose(session);
    demo(QStringLiteral("clear"));
    return ms;
}

void measureConnecting(Demo& demo, PanelRig& rig)
{
    constexpr double pausesMs = 10.0;
    VisaLibrary visa;
    visa.load(Demo::libraryPath().toLocal8Bit().constData());
    ViSession manager = VI_NULL;
    visa.viOpenDefaultRM(&manager);
    demo(QStringLiteral("latency 1000"));
    double best = 1e9;
    double bare = 1e9;
    for (int round = 0; round < 5; ++round) {
        QElapsedTimer timer;
        auto& connection = *rig.window().findChild<Connection*>();
        QEventLoop loop;
        QObject::connect(&connection, &Connection::ready, &loop, &QEventLoop::quit);
        demo(QStringLiteral("clear"));
        timer.start();
        QTimer::singleShot(0, &loop, [&] { rig.get<QPushButton>("connect").click(); });
        loop.exec();
        best = std::min(best, static_cast<double>(timer.nsecsElapsed()) / 1e6);
        const QStringList sent = demo.takeSent();
        rig.click("connect");
        demo(QStringLiteral("reset"));
        demo(QStringLiteral("latency 1000"));
        bare = std::min(bare, bareConnectionMs(demo, sent, manager, visa));
        demo(QStringLiteral("reset"));
        demo(QStringLiteral("latency 1000"));
    }
    std::printf("connecting, 1 ms latency:     %7.1f ms  (%.3f times its VISA calls and pauses, "
                "aim 1.05)\n",
                best, best / (bare + pausesMs));
    demo(QStringLiteral("latency 0"));
}
} // namespace

int main(int argc, char* argv[])
{
    QElapsedTimer start;
    start.start();
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    Demo demo;
    PanelRig rig;
    QCoreApplication::processEvents();
    std::printf("application to painted window:%7.1f ms  (aim 120), %.0f MB resident (aim 60)\n",
                static_cast<double>(start.nsecsElapsed()) / 1e6, residentMegabytes());

    rig.connectDevice();
    auto& field = rig.get<QLineEdit>("FREQ");
    field.setFocus();
    field.setText(QStringLiteral("2 500 000 000"));
    const double commitUs =
        microsecondsEach(2000, [&] { QTest::keyClick(&field, Qt::Key_Return); });
    std::printf("commit, Return to reply shown:%7.2f us  (aim 50)\n", commitUs);
    rig.click("connect");
    demo(QStringLiteral("reset"));

    measureConnecting(demo, rig);

    const std::clock_t before = std::clock();
    pause(2000); // QTest's waiting looks up every few milliseconds
    std::printf("processor while idle:         %7.2f %%\n",
                static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / 2.0 * 100.0);
    return 0;
}
