#include "demo/instrument_description.h"

#include <cstdlib>

namespace
{

constexpr std::string_view bootloaderMark = "bootloader ";

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
        description.latencyUs = number.value > 0 ? static_cast<unsigned>(number.value) : 0;
    else
        applyLimitKey(description.limits, key, number.value);
}

} // namespace

std::string InstrumentDescription::address() const
{
    return "USB0::0x5645::0x0040::" + serial + "::0::INSTR";
}

std::vector<InstrumentDescription> parseDescriptions(std::string_view text)
{
    struct Line {
        size_t instrument;
        std::string_view key;
        std::string_view value;
    };
    std::vector<InstrumentDescription> descriptions;
    std::vector<Line> lines;
    bool isSkipped = false;
    while (!text.empty()) {
        std::string_view line = trimmed(takePart(text, '\n'));
        if (line.empty() || line.front() == '#' || line.front() == ';')
            continue;
        if (const std::string_view serial = sectionName(line); !serial.empty()) {
            isSkipped = serial.substr(0, bootloaderMark.size()) == bootloaderMark;
            if (isSkipped)
                continue;
            descriptions.emplace_back();
            descriptions.back().serial = serial;
        } else if (!descriptions.empty() && !isSkipped && line.find('=') != line.npos) {
            const std::string_view key = trimmed(takePart(line, '='));
            lines.push_back({descriptions.size() - 1, key, trimmed(line)});
            if (equalIgnoringCase(key, "model"))
                descriptions.back().model = trimmed(line);
        }
    }
    // The model sets limits that other keys of its section may then narrow, wherever they stand.
    for (InstrumentDescription& description : descriptions)
        applyModel(description.limits, description.model);
    for (const Line& line : lines)
        applyKey(descriptions[line.instrument], line.key, line.value);
    return descriptions;
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
    while (!text.empty()) {
        const bool isEnded = text.find('\n') != text.npos;
        const std::string_view line = takePart(text, '\n');
        std::string_view rest = line;
        if (const std::string_view name = sectionName(line); !name.empty())
            isInside = name == serial;
        if (isInside && equalIgnoringCase(trimmed(takePart(rest, '=')), "massStorage")) {
            result += isDone ? std::string(line) : setting;
            isDone = true;
        } else {
            result += line;
        }
        result += isEnded || !text.empty() ? "\n" : "";
    }
    if (isDone)
        return result;
    const size_t section = result.find("[" + std::string(serial) + "]");
    const size_t lineEnd = section == result.npos ? section : result.find('\n', section);
    if (lineEnd != result.npos)
        result.insert(lineEnd + 1, setting + "\n");
    else if (section != result.npos)
        result += "\n" + setting + "\n";
    return result;
}
