// One committed setting: what the session adds to the two VISA calls it consists of.
#include "bench/timing.h"
#include "link/scpi_session.h"
#include "tests/support/demo.h"

#include <clocale>
#include <cstdio>
#include <vector>

int main()
{
    std::setlocale(LC_NUMERIC, "C");
    Demo demo;
    VisaLibrary visa;
    visa.load(Demo::libraryPath().toLocal8Bit().constData());
    const char address[] = "USB0::0x5645::0x0040::20215678::0::INSTR";
    // Only one of the two can have the instrument open; short turns find quiet moments.
    constexpr int calls = 200;
    constexpr int turns = 500;

    ViSession manager = VI_NULL;
    visa.viOpenDefaultRM(&manager);
    std::vector<char> reply(65536);
    const auto measureBare = [&] {
        ViSession bare = VI_NULL;
        if (visa.viOpen(manager, address, VI_EXCLUSIVE_LOCK, 2000, &bare) != VI_SUCCESS)
            qFatal("another program holds the simulated instrument");
        const double us = microsecondsOf(calls, [&] {
            visa.viQueryf(bare, "FREQ %lf Hz;FREQ?\n", "%65535T", 2.5e9, reply.data());
            visa.viQueryf(bare, "SYSTem:ERRor?\n", "%65535T", reply.data());
        });
        visa.viClose(bare);
        demo(QStringLiteral("clear"));
        return us;
    };

    ScpiSession session(visa);
    session.openResourceManager();
    const auto measureSession = [&] {
        if (!session.open(QString::fromLatin1(address)))
            qFatal("another program holds the simulated instrument");
        session.setConnected();
        const double us = microsecondsOf(calls, [&] {
            session.setAndReadBack("FREQ %lf Hz;FREQ?", 2.5e9);
            session.checkErrors();
        });
        session.close();
        demo(QStringLiteral("clear"));
        return us;
    };
    const Comparison setting = comparedInTurns(turns, measureSession, measureBare);
    std::printf("setting, bare VISA calls:     %7.2f us\n", setting.bareUs);
    std::printf("setting, through the session: %7.2f us  (%.2f times; %.2f us more, aim 2)\n",
                setting.us, setting.us / setting.bareUs, setting.us - setting.bareUs);
    return 0;
}
