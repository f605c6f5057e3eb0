#include "demo/control/description_file.h"

#include <algorithm>

namespace
{

constexpr std::string_view bootloaderMark = "bootloader ";
constexpr double longestLatencyUs = 60e6;

bool isOn(std::string_view value)
{
    return equalIgnoringCase(value, "on") || equalIgnoringCase(value, "true") || value == "1";
}

// The name inside [ ], or nothing when the line opens no section.
std::string_view sectionName(std::string_view line)
{
    line = trimmed(line);
    if (line.size() < 2 || line.front() != '[' || line.back() != ']')
        return {};
    return trimmed(line.substr(1, line.size() - 2));
}

/// A key of a section; faults are reported with its line, 1 for the first.
struct KeyLine {
    size_t number;
    size_t instrument;
    std::string_view key;
    std::string_view value;
};

void applyKey(InstrumentDescription& description, std::string_view key, std::string_view value)
{
    struct TextKey {
        const char* name;
        std::string InstrumentDescription::*field;
    };
    static const TextKey textKeys[] = {
        {"maker", &InstrumentDescription::maker},
        {"model", &InstrumentDescription::model},
        {"firmware", &InstrumentDescription::firmware},
        {"calibrationDue", &InstrumentDescription::calibrationDue},
    };
    for (const TextKey& row : textKeys)
        if (equalIgnoringCase(key, row.name))
            description.*row.field = value;
    const ParsedNumber number = parseNumber(value, Unit::None);
    if (equalIgnoringCase(key, "massStorage"))
        description.massStorage = isOn(value);
    else if (equalIgnoringCase(key, "reference"))
        description.referencePresent = isOn(value);
    else if (number.error != ScpiError::None)
        return;
    else if (equalIgnoringCase(key, "latencyUs"))
        description.latencyUs =
            static_cast<unsigned>(std::min(std::max(number.value, 0.0), longestLatencyUs));
    else
        applyLimitKey(description.limits, key, number.value);
}

std::string faultOf(const InstrumentDescription& description, const KeyLine& line)
{
    const ParsedNumber number = parseNumber(line.value, Unit::None);
    if (number.error != ScpiError::None)
        return {};
    if (!equalIgnoringCase(line.key, "latencyUs"))
        return limitFault(description.limits, line.key, number.value);
    return number.value >= 0 && number.value <= longestLatencyUs
               ? std::string()
               : "latencyUs is 0 to " + numberText(longestLatencyUs, 0);
}

size_t indexOf(const std::vector<InstrumentDescription>& descriptions, std::string_view serial)
{
    const auto found =
        std::find_if(descriptions.begin(), descriptions.end(),
                     [serial](const InstrumentDescription& one) { return one.serial == serial; });
    return static_cast<size_t>(found - descriptions.begin());
}

} // namespace

DescribedInstruments parseDescriptions(std::string_view text)
{
    DescribedInstruments described;
    std::vector<InstrumentDescription>& descriptions = described.instruments;
    std::vector<KeyLine> lines;
    size_t present = 0; // none while there is none
    for (size_t number = 1; !text.empty(); ++number) {
        std::string_view line = trimmed(takePart(text, '\n'));
        if (line.empty() || line.front() == '#' || line.front() == ';')
            continue;
        if (const std::string_view serial = sectionName(line); !serial.empty()) {
            if (serial.substr(0, bootloaderMark.size()) == bootloaderMark) {
                present = descriptions.size();
                continue;
            }
            // A second section of an instrument continues the first.
            present = indexOf(descriptions, serial);
            if (present == descriptions.size())
                descriptions.emplace_back().serial = serial;
        } else if (present < descriptions.size() && line.find('=') != line.npos) {
            const std::string_view key = trimmed(takePart(line, '='));
            lines.push_back({number, present, key, trimmed(line)});
            if (equalIgnoringCase(key, "model"))
                descriptions[present].model = trimmed(line);
        }
    }
    // The model sets limits that other keys of its section may then narrow, wherever they stand.
    for (InstrumentDescription& description : descriptions)
        applyModel(description.limits, description.model);
    for (const KeyLine& line : lines)
        applyKey(descriptions[line.instrument], line.key, line.value);
    for (const KeyLine& line : lines) {
        const std::string fault = faultOf(descriptions[line.instrument], line);
        if (described.fault.empty() && !fault.empty())
            described.fault = "line " + std::to_string(line.number) + ": " + fault;
    }
    return described;
}

std::string inBootloader(std::string_view text, std::string_view serial)
{
    std::string result;
    while (!text.empty()) {
        const bool isEnded = text.find('\n') != text.npos;
        const std::string_view line = takePart(text, '\n');
        result += sectionName(line) == serial
                      ? '[' + std::string(bootloaderMark) + std::string(serial) + ']'
                      : std::string(line);
        result += isEnded ? "\n" : "";
    }
    return result;
}

std::string withMassStorage(std::string_view text, std::string_view serial, bool on)
{
    const std::string setting = std::string("massStorage=") + (on ? "on" : "off");
    std::string result;
    bool isInside = false;
    bool isDone = false;
    size_t sectionEnd = std::string::npos;
    while (!text.empty()) {
        const bool isEnded = text.find('\n') != text.npos;
        const std::string_view line = takePart(text, '\n');
        std::string_view rest = line;
        if (const std::string_view name = sectionName(line); !name.empty())
            isInside = name == serial;
        const bool isSetting =
            isInside && equalIgnoringCase(trimmed(takePart(rest, '=')), "massStorage");
        result += isSetting ? setting : std::string(line);
        result += isEnded ? "\n" : "";
        isDone = isDone || isSetting;
        if (isInside && sectionEnd == std::string::npos)
            sectionEnd = result.size();
    }
    if (!isDone && sectionEnd != std::string::npos)
        result.insert(sectionEnd,
                      result[sectionEnd - 1] == '\n' ? setting + '\n' : '\n' + setting + '\n');
    return result;
}
