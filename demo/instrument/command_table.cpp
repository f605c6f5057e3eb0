#include "demo/instrument/command_table.h"

#include <algorithm>
#include <unordered_map>

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

constexpr const char* sources = "INTernal|EXTernal";
constexpr const char* shapes = "SINusoid|RAMP|TRIangle|RANDom|SQUare";
constexpr const char* lfoShapes = "SINusoid|RAMP|TRIangle|RANDom|SQUare|DC";
constexpr const char* directions = "POSitive|NEGative";
constexpr const char* modes = "FIXed|SWEep|LIST";

const Command commands[] = {
    row("*CLS", clearStatus, nullptr),
    row("*ESE", setEventEnable, queryEventEnable),
    row("*ESR", nullptr, queryEventStatus),
    row("*IDN", nullptr, queryIdentity),
    row("*OPC", setOperationComplete, queryOperationComplete),
    row("*RST", resetInstrument, nullptr),
    row("*SRE", setServiceEnable, queryServiceEnable),
    row("*STB", nullptr, queryStatusByte),
    row("*TRG", triggerFromBus, nullptr),
    row("*TST", nullptr, querySelfTest),
    row("*WAI", waitToContinue, nullptr),
    row("SYSTem:ERRor[:NEXT]", nullptr, queryError),
    row("SYSTem:ERRor:COUNt", nullptr, queryErrorCount),
    row("SYSTem:VERSion", nullptr, queryScpiVersion),

    number("FREQuency[:CW]", Quantity::Frequency),
    number("FREQuency:STARt", Quantity::StartFrequency),
    number("FREQuency:STOP", Quantity::StopFrequency),
    choice("FREQuency:MODE", Choice::FrequencyMode, modes),
    row("FREQuency:CURRent", nullptr, queryPresentFrequency),
    number("POWer[:LEVel]", Quantity::Power),
    number("POWer:STARt", Quantity::StartPower),
    number("POWer:STOP", Quantity::StopPower),
    choice("POWer:MODE", Choice::PowerMode, modes),
    toggle("POWer:BOOSt", Switch::Boost),
    row("POWer:CURRent", nullptr, queryPresentPower),
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
    row("LIST:MANual", moveToPoint, queryPresentPoint),
    row("LIST:POINts:CURRent", nullptr, queryPresentPoint),
    choice("TRIGger:SOURce", Choice::TriggerSource, "IMMediate|EXTernal|BUS"),
    choice("TRIGger:SLOPe", Choice::TriggerSlope, directions),
    row("TRIGger:STATe", nullptr, queryRunState),
    row("INITiate[:IMMediate]", initiateRun, nullptr),
    toggle("INITiate:CONTinuous", Switch::Continuous),
    row("ABORt", abortRun, nullptr),
    row("*ABORt", abortRun, nullptr), // not by the standard, but the family takes it

    row("MEMory:MSC", setMassStorage, queryMassStorage),
    row("MEMory:REPROGram", startBootloader, nullptr),
    number("MEMory:DAC", Quantity::Dac),
    row("MEMory:TABLe:POINt", nullptr, queryCalibrationCount),
    row("MEMory:TABLe:POINt:ALL", nullptr, queryCalibrationPoints),
    row("MEMory:TABLe:ADD", addCalibrationPoint, nullptr),
    row("MEMory:TABLe:SAVE", saveCalibration, nullptr),
    row("SERVice:SOURce:CDUE", nullptr, queryCalibrationDue),
    row("TEMPerature", nullptr, queryTemperature),
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
