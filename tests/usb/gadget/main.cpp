// A USB-TMC instrument for the kernel that this program runs on: the simulated generator behind an
// emulated USB controller. It is plugged in at once; commands come through a socket, one a
// connection: those of klvDemo, and those in the table below.
//
//   gadget FUNCTION_FOLDER GADGET_FOLDER CONTROLLER SOCKET [INSTRUMENT_INI [interrupt]]
//
// FUNCTION_FOLDER is where the FunctionFS is mounted, GADGET_FOLDER the gadget in configfs.

#include "demo/control/control.h"
#include "tests/usb/gadget/tmc_instrument.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{

/// The plug: the gadget is bound to its controller while the instrument is on the bus.
class Cable
{
public:
    Cable(std::string gadgetFolder, std::string controller)
        : m_file(std::move(gadgetFolder) + "/UDC"), m_controller(std::move(controller))
    {
    }

    void follow(const Instrument& instrument)
    {
        const unsigned number = instrument.isPresent() ? instrument.plugNumber() : 0;
        if (number == m_plugNumber)
            return;
        if (m_plugNumber > 0)
            std::ofstream(m_file) << '\n';
        if (number > 0)
            std::ofstream(m_file) << m_controller << '\n';
        m_plugNumber = number;
    }

private:
    const std::string m_file;
    const std::string m_controller;
    unsigned m_plugNumber = 0;
};

struct FaultCommand {
    const char* name;
    unsigned TmcFaults::*number;
    std::string TmcFaults::*word;
};

const FaultCommand faultCommands[] = {
    {"late", &TmcFaults::lateMs, nullptr},   {"deaf", &TmcFaults::deafMs, nullptr},
    {"length", &TmcFaults::length, nullptr}, {"vanish", &TmcFaults::vanishAt, nullptr},
    {"header", nullptr, &TmcFaults::header}, {"halt", nullptr, &TmcFaults::halt},
};

std::string executed(TmcFaults& faults, const std::string& command)
{
    const size_t space = command.find(' ');
    const std::string name = command.substr(0, space);
    const std::string rest = space == command.npos ? "" : command.substr(space + 1);
    for (const FaultCommand& each : faultCommands) {
        if (name != each.name)
            continue;
        if (each.word != nullptr)
            faults.*each.word = rest;
        else
            faults.*each.number = static_cast<unsigned>(std::atoi(rest.c_str()));
        return {};
    }
    return klvDemo(command.c_str());
}

void serve(int client, TmcInstrument& instrument, Simulation& simulation, Cable& cable)
{
    std::string command;
    char buffer[4096];
    for (ssize_t count = 0; (count = read(client, buffer, sizeof buffer)) > 0;)
        command.append(buffer, static_cast<size_t>(count));
    std::string answer;
    {
        const std::lock_guard lock(instrument.mutex);
        answer = executed(instrument.faults, command);
        cable.follow(*simulation.rack.first());
    }
    std::string_view rest = answer;
    for (ssize_t count = 0; !rest.empty() && count >= 0;) {
        count = send(client, rest.data(), rest.size(), MSG_NOSIGNAL);
        rest.remove_prefix(static_cast<size_t>(std::max<ssize_t>(count, 0)));
    }
    close(client);
}

int listenAt(const std::string& path)
{
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    if (bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address) < 0 ||
        listen(server, 5) < 0) {
        perror(path.c_str());
        std::exit(1);
    }
    return server;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 5)
        return 2;
    // Without SA_RESTART: the signal breaks a transfer.
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    sigaction(SIGUSR1, &action, nullptr);

    Simulation& simulation = theSimulation();
    if (argc > 5) {
        std::ifstream file(argv[5]);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        klvDemo(("instruments " + text).c_str());
    }
    Endpoints endpoints(argv[1], argc > 6);
    Cable cable(argv[2], argv[3]);
    TmcInstrument instrument(endpoints, simulation,
                             [&] { cable.follow(*simulation.rack.first()); });
    const int server = listenAt(argv[4]);
    // Neither thread ends before the process.
    std::thread([&] {
        for (;;)
            serve(accept4(server, nullptr, nullptr, SOCK_CLOEXEC), instrument, simulation, cable);
    }).detach();
    cable.follow(*simulation.rack.first());
    for (;;) {
        const usb_functionfs_event event = endpoints.nextEvent();
        if (event.type == FUNCTIONFS_SETUP)
            instrument.request(event.u.setup);
        else if (event.type == FUNCTIONFS_ENABLE)
            instrument.enable();
    }
}
