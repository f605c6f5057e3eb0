#include "demo/instrument/command_table.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace
{

Command number(const char* pattern, Quantity name)
{
    return {pattern, setNumber, queryNumber, static_cast<size_t>(name), ""};
}

Command toggle(const char* pattern, Switch name)
{
    return {pattern, setSwitch, querySwitch, static_cast<size_t>(name), ""};
}

Command choice(const char* pattern, Choice name, const char* keywords)
{
    return {pattern, setChoice, queryChoice, static_cast<size_t>(name), keywords};
}

Command row(const char* pattern, Handler set, Handler query, Quantity quantity = Quantity::Dac)
{
    return {pattern, set, query, static_cast<size_t>(quantity), ""};
}

Command ask(const char* pattern, Handler set, Answer answer)
{
    return {pattern, set, queryAnswer, 0, "", answer};
}

Command ask(const char* pattern, Answer answer)
{
    return ask(pattern, nullptr, answer);
}

Command act(const char* pattern, Action action, Answer answer = nullptr)
{
    return {pattern, doAction, answer != nullptr ? queryAnswer : nullptr, 0, "", answer, action};
}

std::string presentFrequency(Model& model)
{
    return numberText(model.run.frequencyHz(model.settings), infoOf(Quantity::Frequency).decimals);
}

std::string presentPower(Model& model)
{
    return numberText(model.run.powerDbm(model.settings), infoOf(Quantity::Power).decimals);
}

std::string presentPoint(Model& model)
{
    return std::to_string(model.run.point());
}

std::string runState(Model& model)
{
    static const char* const states[] = {"IDLE", "WAIT", "RUN"};
    return states[static_cast<size_t>(model.run.state())];
}

std::string identity(Model& model)
{
    const InstrumentDescription& what = model.description;
    return what.maker + "," + what.model + "," + what.serial + "," + what.firmware;
}

void clearStatus(Model& model)
{
    model.errors.clear();
    model.eventStatus = 0;
}

void abortRun(Model& model)
{
    model.run.abort();
}

constexpr const char* sources = "INTernal|EXTernal";
constexpr const char* shapes = "SINusoid|RAMP|TRIangle|RANDom|SQUare";
constexpr const char* lfoShapes = "SINusoid|RAMP|TRIangle|RANDom|SQUare|DC";
constexpr const char* directions = "POSitive|NEGative";
constexpr const char* modes = "FIXed|SWEep|LIST";

const Command commands[] = {
    act("*CLS", clearStatus),
    ask("*ESE", setEventEnable, [](Model& m) { return std::to_string(m.eventEnable); }),
    ask("*ESR", [](Model& m) { return std::to_string(std::exchange(m.eventStatus, 0)); }),
    ask("*IDN", identity),
    // Every command is complete when it has been executed.
    act(
        "*OPC", [](Model& m) { m.eventStatus |= 0x01; }, [](Model&) { return std::string("1"); }),
    act("*RST", [](Model& m) { m.reset(); }),
    ask("*SRE", setServiceEnable, [](Model& m) { return std::to_string(m.serviceEnable); }),
    ask("*STB", [](Model& m) { return std::to_string(m.statusByte()); }),
    row("*TRG", triggerFromBus, nullptr),
    ask("*TST", [](Model&) { return std::string("0"); }),
    act("*WAI", [](Model&) {}),
    ask("SYSTem:ERRor[:NEXT]", [](Model& m) { return m.errors.pop(); }),
    ask("SYSTem:ERRor:COUNt", [](Model& m) { return std::to_string(m.errors.size()); }),
    ask("SYSTem:VERSion", [](Model&) { return std::string("1999.0"); }),

    number("FREQuency[:CW]", Quantity::Frequency),
    number("FREQuency:STARt", Quantity::StartFrequency),
    number("FREQuency:STOP", Quantity::StopFrequency),
    choice("FREQuency:MODE", Choice::FrequencyMode, modes),
    ask("FREQuency:CURRent", presentFrequency),
    number("POWer[:LEVel]", Quantity::Power),
    number("POWer:STARt", Quantity::StartPower),
    number("POWer:STOP", Quantity::StopPower),
    choice("POWer:MODE", Choice::PowerMode, modes),
    toggle("POWer:BOOSt", Switch::Boost),
    ask("POWer:CURRent", presentPower),
    toggle("OUTPut[:STATe]", Switch::Output),
    choice("ROSCillator:SOURce", Choice::ReferenceSource, sources),
    number("ROSCillator:EXTernal:FREQuency", Quantity::ReferenceFrequency),

    number("AM[:DEPTh]", Quantity::AmDepth),
    toggle("AM:STATe", Switch::Am),
    choice("AM:SOURce", Choice::AmSource, sources),
    number("AM:INTernal:FUNCtion:FREQuency", Quantity::AmRate),
    choice("AM:INTernal:FUNCtion:SHAPe", Choice::AmShape, shapes),
    choice("AM:INTernal:FUNCtion:SHAPe:RAMP", Choice::AmRamp, directions),
    number("AM:INTernal:FUNCtion:SHAPe:SQUare:DUTY", Quantity::AmDuty),
    number("FM[:DEViation]", Quantity::FmDeviation),
    toggle("FM:STATe", Switch::Fm),
    choice("FM:SOURce", Choice::FmSource, sources),
    number("FM:INTernal:FUNCtion:FREQuency", Quantity::FmRate),
    choice("FM:INTernal:FUNCtion:SHAPe", Choice::FmShape, shapes),
    choice("FM:INTernal:FUNCtion:SHAPe:RAMP", Choice::FmRamp, directions),
    number("FM:INTernal:FUNCtion:SHAPe:SQUare:DUTY", Quantity::FmDuty),
    number("PM[:DEViation]", Quantity::PmDeviation),
    toggle("PM:STATe", Switch::Pm),
    choice("PM:SOURce", Choice::PmSource, sources),
    number("PM:INTernal:FUNCtion:FREQuency", Quantity::PmRate),
    choice("PM:INTernal:FUNCtion:SHAPe", Choice::PmShape, shapes),
    choice("PM:INTernal:FUNCtion:SHAPe:RAMP", Choice::PmRamp, directions),
    number("PM:INTernal:FUNCtion:SHAPe:SQUare:DUTY", Quantity::PmDuty),
    toggle("PULM:STATe", Switch::Pulse),
    choice("PULM:SOURce", Choice::PulseSource, sources),
    number("PULM:INTernal:PERiod", Quantity::PulsePeriod),
    number("PULM:INTernal:PWIDth", Quantity::PulseWidth),

    toggle("LFO:STATe", Switch::Lfo),
    number("LFO:AMPLitude", Quantity::LfoAmplitude),
    number("LFO:FUNCtion:FREQuency", Quantity::LfoFrequency),
    choice("LFO:FUNCtion:SHAPe", Choice::LfoShape, lfoShapes),
    choice("LFO:FUNCtion:SHAPe:RAMP", Choice::LfoRamp, directions),
    number("LFO:FUNCtion:SHAPe:SQUare:DUTY", Quantity::LfoDuty),

    number("SWEep:POINts", Quantity::SweepPoints),
    number("SWEep:DWELl", Quantity::SweepDwell),
    row("LIST:FREQuency", setList, queryList, Quantity::Frequency),
    row("LIST:FREQuency:ADD", addToList, nullptr, Quantity::Frequency),
    row("LIST:FREQuency:POINts", nullptr, queryListPoints, Quantity::Frequency),
    row("LIST:POWer", setList, queryList, Quantity::Power),
    row("LIST:POWer:ADD", addToList, nullptr, Quantity::Power),
    row("LIST:POWer:POINts", nullptr, queryListPoints, Quantity::Power),
    row("LIST:DWELl", setList, queryList, Quantity::ListDwell),
    row("LIST:DWELl:ADD", addToList, nullptr, Quantity::ListDwell),
    row("LIST:DWELl:POINts", nullptr, queryDwellPoints, Quantity::ListDwell),
    choice("LIST:MODE", Choice::ListMode, "AUTO|MANual"),
    ask("LIST:MANual", moveToPoint, presentPoint),
    ask("LIST:POINts:CURRent", presentPoint),
    choice("TRIGger:SOURce", Choice::TriggerSource, "IMMediate|EXTernal|BUS"),
    choice("TRIGger:SLOPe", Choice::TriggerSlope, directions),
    ask("TRIGger:STATe", runState),
    row("INITiate[:IMMediate]", initiateRun, nullptr),
    toggle("INITiate:CONTinuous", Switch::Continuous),
    act("ABORt", abortRun),
    act("*ABORt", abortRun), // not by the standard, but the family takes it

    ask("MEMory:MSC", setMassStorage,
        [](Model& m) { return std::string(m.description.massStorage ? "ON" : "OFF"); }),
    act("MEMory:REPROGram", [](Model& m) { m.leavesBus = true; }),
    number("MEMory:DAC", Quantity::Dac),
    ask("MEMory:TABLe:POINt",
        [](Model& m) { return std::to_string(m.calibration.points().size()); }),
    ask("MEMory:TABLe:POINt:ALL", calibrationPoints),
    row("MEMory:TABLe:ADD", addCalibrationPoint, nullptr),
    act("MEMory:TABLe:SAVE", [](Model& m) { m.calibration.save(); }),
    ask("SERVice:SOURce:CDUE", [](Model& m) { return m.description.calibrationDue; }),
    ask("TEMPerature", temperature),
};

using Index = std::unordered_map<std::string, const Command*>;

// Adds every header that the rest of a pattern can stand for, appended to the header built so far.
void enter(Index& index, const Command& command, const std::string& header, std::string_view rest)
{
    if (rest.empty()) {
        index.emplace(header, &command);
        return;
    }
    const bool isOptional = rest.front() == '[';
    const size_t start = rest.find_first_not_of("[:");
    const size_t end = std::min(rest.find_first_of(":[]", start), rest.size());
    const std::string_view keyword = rest.substr(start, end - start);
    const std::string_view after = rest.substr(std::min(end + (isOptional ? 1 : 0), rest.size()));
    const std::string path = header.empty() ? header : header + ":";
    enter(index, command, path + upperCase(keyword), after);
    const std::string_view abbreviated = shortForm(keyword);
    if (abbreviated.size() < keyword.size())
        enter(index, command, path + std::string(abbreviated), after);
    if (isOptional)
        enter(index, command, header, after);
}

Index makeIndex()
{
    Index index;
    for (const Command& command : commands)
        enter(index, command, "", command.pattern);
    return index;
}

} // namespace

const Command* findCommand(const std::string& header)
{
    static const Index index = makeIndex();
    const auto found = index.find(header);
    return found == index.end() ? nullptr : found->second;
}
