#include "demo/control/control.h"

#include "demo/control/simulation.h"
#include "visa_library/library.h"

#include <algorithm>
#include <cstdlib>

namespace
{

using Answer = std::string;
using Action = Answer (*)(Simulation& simulation, std::string_view rest);

std::string_view takeWord(std::string_view& text)
{
    text = trimmed(text);
    const std::string_view word = takePart(text, ' ');
    text = trimmed(text);
    return word;
}

// Decimal or hexadecimal; status codes are negative numbers written as they look in hexadecimal.
long long numberOf(std::string_view word)
{
    return std::strtoll(std::string(word).c_str(), nullptr, 0);
}

int codeOf(std::string_view word)
{
    return static_cast<int>(numberOf(word));
}

// The first instrument takes what names none.
template <typename Action>
Answer forInstrument(Simulation& simulation, std::string_view serial, Action action)
{
    const auto instrument = serial.empty() ? simulation.rack.first() : simulation.rack.find(serial);
    if (instrument == nullptr)
        return "error: no such instrument";
    if constexpr (std::is_same_v<decltype(action(*instrument)), Answer>)
        return action(*instrument);
    action(*instrument);
    return {};
}

Answer reset(Simulation& simulation, std::string_view)
{
    simulation.faults = Faults();
    simulation.rack.reset();
    simulation.wire.clear();
    Clock::reset();
    simulation.callCount = 0;
    return {};
}

Answer setInstruments(Simulation& simulation, std::string_view rest)
{
    const DescribedInstruments described = parseDescriptions(rest);
    if (!described.fault.empty())
        return "error: " + described.fault;
    simulation.rack.setDescriptions(described.instruments);
    return std::to_string(simulation.rack.instruments().size());
}

Answer plug(Simulation& simulation, std::string_view rest)
{
    return forInstrument(simulation, rest, [](Instrument& instrument) { instrument.plug(); });
}

Answer unplug(Simulation& simulation, std::string_view rest)
{
    return forInstrument(simulation, rest, [](Instrument& instrument) { instrument.unplug(); });
}

Answer transcript(Simulation& simulation, std::string_view)
{
    return simulation.wire.transcript();
}

Answer clear(Simulation& simulation, std::string_view)
{
    simulation.wire.clear();
    return {};
}

Answer calls(Simulation& simulation, std::string_view)
{
    return std::to_string(simulation.callCount);
}

Answer setLatency(Simulation& simulation, std::string_view rest)
{
    simulation.faults.latencyUs = static_cast<unsigned>(numberOf(rest));
    return {};
}

Answer setTimeouts(Simulation& simulation, std::string_view rest)
{
    simulation.faults.waitsForTimeouts = rest != "immediate";
    return {};
}

Answer pushClock(Simulation&, std::string_view rest)
{
    if (rest == "stop")
        Clock::stop();
    else
        Clock::advance(Clock::Microseconds(numberOf(rest)));
    return {};
}

Answer pulseTrigger(Simulation& simulation, std::string_view rest)
{
    return forInstrument(simulation, {}, [rest](Instrument& instrument) {
        instrument.pulseTriggerInput(rest == "rising");
    });
}

Answer setReference(Simulation& simulation, std::string_view rest)
{
    return forInstrument(simulation, {}, [rest](Instrument& instrument) {
        instrument.model.description.referencePresent = rest == "present";
        instrument.model.updateReferenceCondition();
    });
}

Answer ask(Simulation& simulation, std::string_view rest)
{
    return forInstrument(simulation, {}, [rest](Instrument& instrument) -> Answer {
        instrument.receive(rest, true, {});
        const std::string answer = instrument.output.take(std::string::npos, '\n');
        return answer.empty() ? "error: no answer" : Answer(trimmed(answer));
    });
}

Answer pushError(Simulation& simulation, std::string_view rest)
{
    return forInstrument(simulation, {}, [rest](Instrument& instrument) mutable {
        const int code = codeOf(takeWord(rest));
        instrument.model.raise(code, unescaped(rest));
    });
}

Answer setErrors(Simulation& simulation, std::string_view rest)
{
    return forInstrument(simulation, {}, [rest](Instrument& instrument) mutable {
        const bool isEndless = takeWord(rest) == "endless";
        instrument.model.errors.setEndless(isEndless ? codeOf(rest) : 0);
    });
}

Answer setCondition(Simulation& simulation, std::string_view rest)
{
    return forInstrument(simulation, {}, [rest](Instrument& instrument) mutable {
        const int code = codeOf(takeWord(rest));
        instrument.model.errors.setCondition(code, rest == "on");
    });
}

Answer setReply(Simulation& simulation, std::string_view rest)
{
    const size_t arrow = rest.find("->");
    const std::string query = upperCase(trimmed(rest.substr(0, arrow)));
    simulation.faults.replies.erase(query);
    if (arrow != rest.npos)
        simulation.faults.replies[query] = unescaped(trimmed(rest.substr(arrow + 2)));
    return {};
}

Answer setAttributeFault(Simulation& simulation, std::string_view rest)
{
    const auto attribute = static_cast<ViAttr>(numberOf(takeWord(rest)));
    AttributeReply& fault = simulation.faults.attributes[attribute];
    const std::string_view kind = takeWord(rest);
    fault.status = kind == "status" ? codeOf(rest) : VI_SUCCESS;
    fault.text = kind == "text" ? unescaped(rest) : std::string();
    return {};
}

Answer addFault(Simulation& simulation, std::string_view rest)
{
    Fault fault;
    fault.call = static_cast<unsigned>(numberOf(takeWord(rest)));
    const std::string_view kind = takeWord(rest);
    if (fault.call == 0)
        return "error: calls are counted from 1";
    if (kind == "status") {
        fault.status = codeOf(takeWord(rest));
        fault.isSlow = rest == "slow";
    } else if (kind == "vanish") {
        fault.kind = Fault::Kind::Vanish;
    } else if (kind == "reply") {
        fault.kind = Fault::Kind::Reply;
        fault.reply = unescaped(rest);
    } else if (kind == "length") {
        fault.kind = Fault::Kind::Reply;
        fault.reply = std::string(static_cast<size_t>(numberOf(rest)), 'A') + '\n';
    } else if (kind == "endless") {
        fault.kind = Fault::Kind::Endless;
    } else {
        return "error: no such fault";
    }
    simulation.faults.pending.push_back(fault);
    return {};
}

struct ControlCommand {
    const char* name;
    Action action;
};

const ControlCommand controlCommands[] = {
    {"reset", reset},
    {"instruments", setInstruments},
    {"plug", plug},
    {"unplug", unplug},
    {"transcript", transcript},
    {"clear", clear},
    {"calls", calls},
    {"latency", setLatency},
    {"timeouts", setTimeouts},
    {"clock", pushClock},
    {"trigger", pulseTrigger},
    {"reference", setReference},
    {"ask", ask},
    {"error", pushError},
    {"errors", setErrors},
    {"condition", setCondition},
    {"reply", setReply},
    {"attribute", setAttributeFault},
    {"fault", addFault},
};

} // namespace

extern "C" VISA_EXPORT const char* klvDemo(const char* command)
{
    static Answer answer;
    const VisaCall call(std::nullopt);
    Simulation& simulation = theSimulation();
    simulation.rack.refresh();
    simulation.wire.startTranscript();
    std::string_view rest = command;
    const size_t end = std::min(rest.find_first_of(" \n"), rest.size());
    const std::string_view name = rest.substr(0, end);
    rest = trimmed(rest.substr(end));
    const auto row = std::find_if(std::begin(controlCommands), std::end(controlCommands),
                                  [name](const ControlCommand& each) { return each.name == name; });
    answer =
        row == std::end(controlCommands) ? "error: no such command" : row->action(simulation, rest);
    return answer.c_str();
}
