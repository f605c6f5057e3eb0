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
    constexpr int calls = 20000;

    ViSession manager = VI_NULL;
    ViSession bare = VI_NULL;
    visa.viOpenDefaultRM(&manager);
    visa.viOpen(manager, address, VI_EXCLUSIVE_LOCK, 2000, &bare);
    std::vector<char> reply(65536);
    const double bareUs = microsecondsEach(calls, [&] {
        visa.viQueryf(bare, "FREQ %lf Hz;FREQ?\n", "%65535T", 2.5e9, reply.data());
        visa.viQueryf(bare, "SYSTem:ERRor?\n", "%65535T", reply.data());
    });
    visa.viClose(bare);
    demo(QStringLiteral("clear"));

    ScpiSession session(visa);
    session.openResourceManager();
    session.open(QString::fromLatin1(address));
    session.setConnected();
    const double sessionUs = microsecondsEach(calls, [&] {
        session.setAndReadBack("FREQ %lf Hz;FREQ?", 2.5e9, FieldKind::Frequency);
        session.checkErrors();
    });
    session.close();
    std::printf("setting, bare VISA calls:     %7.2f us\n", bareUs);
    std::printf("setting, through the session: %7.2f us  (%.2f times; %.2f us more, aim 2)\n",
                sessionUs, sessionUs / bareUs, sessionUs - bareUs);
    return 0;
}
