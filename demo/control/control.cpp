#include "demo/control/control.h"

#include "vevisa32_export.h"
#include "visa_library/library.h"

#include <algorithm>
#include <cstdlib>

namespace
{

const std::string noSuchInstrument = "error: no such instrument";

using Answer = std::string;
using Action = Answer (*)(Library& library, std::string_view rest);

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

ViStatus statusOf(std::string_view word)
{
    return static_cast<ViStatus>(numberOf(word));
}

Answer forInstrument(Library& library, std::string_view serial, void (*action)(Instrument&))
{
    const auto instrument = serial.empty() ? library.rack.first() : library.rack.find(serial);
    if (instrument == nullptr)
        return noSuchInstrument;
    action(*instrument);
    return {};
}

Answer reset(Library& library, std::string_view)
{
    library.faults = Faults();
    library.rack.reset();
    library.wire.clear();
    Clock::reset();
    library.callCount = 0;
    return {};
}

Answer setInstruments(Library& library, std::string_view rest)
{
    const DescribedInstruments described = parseDescriptions(rest);
    if (!described.fault.empty())
        return "error: " + described.fault;
    library.rack.setDescriptions(described.instruments);
    return std::to_string(library.rack.instruments().size());
}

Answer plug(Library& library, std::string_view rest)
{
    return forInstrument(library, rest, [](Instrument& instrument) { instrument.plug(); });
}

Answer unplug(Library& library, std::string_view rest)
{
    return forInstrument(library, rest, [](Instrument& instrument) { instrument.unplug(); });
}

Answer transcript(Library& library, std::string_view)
{
    return library.wire.transcript();
}

Answer clear(Library& library, std::string_view)
{
    library.wire.clear();
    return {};
}

Answer calls(Library& library, std::string_view)
{
    return std::to_string(library.callCount);
}

Answer setLatency(Library& library, std::string_view rest)
{
    library.faults.latencyUs = static_cast<unsigned>(numberOf(rest));
    return {};
}

Answer setTimeouts(Library& library, std::string_view rest)
{
    library.faults.waitsForTimeouts = rest != "immediate";
    return {};
}

Answer pushClock(Library&, std::string_view rest)
{
    if (rest == "stop")
        Clock::stop();
    else
        Clock::advance(Clock::Microseconds(numberOf(rest)));
    return {};
}

Answer pulseTrigger(Library& library, std::string_view rest)
{
    if (rest == "rising")
        return forInstrument(library, {}, [](Instrument& i) { i.pulseTriggerInput(true); });
    return forInstrument(library, {}, [](Instrument& i) { i.pulseTriggerInput(false); });
}

Answer setReference(Library& library, std::string_view rest)
{
    const auto instrument = library.rack.first();
    if (instrument == nullptr)
        return noSuchInstrument;
    instrument->model.description.referencePresent = rest == "present";
    instrument->model.updateReferenceCondition();
    return {};
}

Answer ask(Library& library, std::string_view rest)
{
    const auto instrument = library.rack.first();
    if (instrument == nullptr)
        return noSuchInstrument;
    instrument->receive(rest, true, {});
    const std::string answer = instrument->output.take(std::string::npos, '\n');
    return answer.empty() ? "error: no answer" : std::string(trimmed(answer));
}

Answer pushError(Library& library, std::string_view rest)
{
    const auto instrument = library.rack.first();
    if (instrument == nullptr)
        return noSuchInstrument;
    const auto code = static_cast<int>(numberOf(takeWord(rest)));
    instrument->model.raise(code, unescaped(rest));
    return {};
}

Answer setErrors(Library& library, std::string_view rest)
{
    const auto instrument = library.rack.first();
    if (instrument == nullptr)
        return noSuchInstrument;
    const bool isEndless = takeWord(rest) == "endless";
    instrument->model.errors.setEndless(isEndless ? static_cast<int>(numberOf(rest)) : 0);
    return {};
}

Answer setCondition(Library& library, std::string_view rest)
{
    const auto instrument = library.rack.first();
    if (instrument == nullptr)
        return noSuchInstrument;
    const auto code = static_cast<int>(numberOf(takeWord(rest)));
    instrument->model.errors.setCondition(code, rest == "on");
    return {};
}

Answer setReply(Library& library, std::string_view rest)
{
    const size_t arrow = rest.find("->");
    const std::string query = upperCase(trimmed(rest.substr(0, arrow)));
    library.faults.replies.erase(query);
    if (arrow != rest.npos)
        library.faults.replies[query] = unescaped(trimmed(rest.substr(arrow + 2)));
    return {};
}

Answer setAttributeFault(Library& library, std::string_view rest)
{
    const auto attribute = static_cast<ViAttr>(numberOf(takeWord(rest)));
    AttributeFault& fault = library.faults.attributes[attribute];
    const std::string_view kind = takeWord(rest);
    fault.status = kind == "status" ? statusOf(rest) : VI_SUCCESS;
    fault.text = kind == "text" ? unescaped(rest) : std::string();
    return {};
}

Answer addFault(Library& library, std::string_view rest)
{
    Fault fault;
    fault.call = static_cast<unsigned>(numberOf(takeWord(rest)));
    const std::string_view kind = takeWord(rest);
    if (fault.call == 0)
        return "error: calls are counted from 1";
    if (kind == "status") {
        fault.status = statusOf(takeWord(rest));
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
    library.faults.pending.push_back(fault);
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

extern "C" VEVISA32_EXPORT const char* klvDemo(const char* command)
{
    static Answer answer;
    VisaCall call(false);
    call.library.wire.startTranscript();
    std::string_view rest = command;
    const size_t end = std::min(rest.find_first_of(" \n"), rest.size());
    const std::string_view name = rest.substr(0, end);
    rest = trimmed(rest.substr(end));
    const auto row = std::find_if(std::begin(controlCommands), std::end(controlCommands),
                                  [name](const ControlCommand& each) { return each.name == name; });
    answer = row == std::end(controlCommands) ? "error: no such command"
                                              : row->action(call.library, rest);
    return answer.c_str();
}
