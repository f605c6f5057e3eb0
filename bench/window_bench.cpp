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

/// What `sent` says, by bare VISA calls in the same order.
void sendBare(const QStringList& sent, ViSession manager, VisaLibrary& visa)
{
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
    visa.viClose(session);
}

void measureConnecting(Demo& demo, PanelRig& rig)
{
    constexpr double pausesUs = 10000.0;
    constexpr int turns = 25;
    VisaLibrary visa;
    visa.load(Demo::libraryPath().toLocal8Bit().constData());
    ViSession manager = VI_NULL;
    visa.viOpenDefaultRM(&manager);
    auto& connection = *rig.window().findChild<Connection*>();
    QStringList sent;
    const auto makeSlow = [&demo] {
        demo(QStringLiteral("reset"));
        demo(QStringLiteral("latency 1000"));
    };
    const auto measure = [&] {
        makeSlow();
        QEventLoop loop;
        QObject::connect(&connection, &Connection::ready, &loop, &QEventLoop::quit);
        demo(QStringLiteral("clear"));
        const double us = microsecondsOf(1, [&] {
            QTimer::singleShot(0, &loop, [&] { rig.get<QPushButton>("connect").click(); });
            loop.exec();
        });
        sent = demo.takeSent();
        rig.click("connect");
        return us;
    };
    const auto measureBare = [&] {
        makeSlow();
        return microsecondsOf(1, [&] { sendBare(sent, manager, visa); });
    };
    const Comparison connecting = comparedInTurns(turns, measure, measureBare);
    std::printf("connecting, 1 ms latency:     %7.1f ms  (%.3f times its VISA calls and pauses, "
                "aim 1.05)\n",
                connecting.us / 1000.0, connecting.us / (connecting.bareUs + pausesUs));
    demo(QStringLiteral("reset"));
}
} // namespace

int main(int argc, char* argv[])
{
    QElapsedTimer start;
    start.start();
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    Demo demo;
    pauses().share = 1.0; // as the program
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
    pause(2000); // QTest's waiting wakes up every few milliseconds
    std::printf("processor while idle:         %7.2f %%\n",
                static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / 2.0 * 100.0);
    return 0;
}
