#include "demo/instrument/instrument.h"

#include "demo/instrument/command_table.h"
#include "demo/instrument/scpi_parser.h"

#include <algorithm>

namespace
{
constexpr size_t inputCapacity = 1 << 20;
constexpr size_t endlessChunk = 4096;
} // namespace

void OutputQueue::set(std::string bytes)
{
    m_bytes = std::move(bytes);
    m_position = 0;
    m_isEndless = false;
}

void OutputQueue::setEndless()
{
    set(std::string(endlessChunk, 'A'));
    m_isEndless = true;
}

std::string OutputQueue::take(size_t count, int stopCharacter)
{
    if (m_isEndless) {
        m_position = 1;
        return std::string(count, 'A');
    }
    count = std::min(count, m_bytes.size() - m_position);
    if (stopCharacter >= 0) {
        const size_t stop = m_bytes.find(static_cast<char>(stopCharacter), m_position);
        count = stop == m_bytes.npos ? count : std::min(count, stop + 1 - m_position);
    }
    m_position += count;
    return m_bytes.substr(m_position - count, count);
}

std::string_view OutputQueue::rest() const
{
    return std::string_view(m_bytes).substr(m_isEndless ? 0 : m_position);
}

Instrument::Instrument(InstrumentDescription description) : model(std::move(description)) {}

void Instrument::receive(std::string_view bytes, bool end, const ReplyOverrides& overrides)
{
    for (size_t lineFeed = bytes.find('\n'); lineFeed != bytes.npos; lineFeed = bytes.find('\n')) {
        append(bytes.substr(0, lineFeed));
        execute(std::exchange(m_input, {}), overrides);
        bytes.remove_prefix(lineFeed + 1);
    }
    append(bytes);
    if (end)
        execute(std::exchange(m_input, {}), overrides);
}

void Instrument::append(std::string_view bytes)
{
    m_input += bytes;
    if (m_input.size() <= inputCapacity)
        return;
    m_input.clear();
    model.raise(ScpiError::InputBufferOverrun);
}

void Instrument::clearInterface()
{
    m_input.clear();
    output.clear();
}

void Instrument::triggerFromBus()
{
    model.run.advance(model.settings, Clock::now());
    model.raise(model.run.trigger(model.settings, TriggerSource::Bus, Clock::now()));
}

void Instrument::pulseTriggerInput(bool rising)
{
    model.run.advance(model.settings, Clock::now());
    if (rising == (model.settings.choice(Choice::TriggerSlope) == 0))
        model.raise(model.run.trigger(model.settings, TriggerSource::External, Clock::now()));
}

unsigned Instrument::statusByte() const
{
    const unsigned status = model.statusByte() | (output.isEmpty() ? 0U : 0x10U);
    return status | ((status & model.serviceEnable) != 0 ? 0x40U : 0U);
}

void Instrument::unplug()
{
    m_isPresent = false;
    clearInterface();
}

void Instrument::plug()
{
    m_isPresent = true;
    ++m_plugNumber;
    clearInterface();
}

void Instrument::execute(const std::string& bytes, const ReplyOverrides& overrides)
{
    std::string_view message = bytes;
    if (trimmed(message).empty())
        return;
    if (!output.isEmpty()) {
        output.clear();
        model.raise(ScpiError::QueryInterrupted);
    }
    if (!isPlainText(message)) {
        model.raise(ScpiError::InvalidCharacter);
        return;
    }
    std::string path;
    std::optional<std::string> reply;
    while (!message.empty()) {
        const auto answer = executeUnit(trimmed(takeMessageUnit(message)), path, overrides);
        if (answer)
            reply = reply ? *reply + ';' + *answer : *answer;
    }
    if (reply)
        output.set(*reply + '\n');
}

std::optional<std::string> Instrument::executeUnit(std::string_view unit, std::string& path,
                                                   const ReplyOverrides& overrides)
{
    if (unit.empty())
        return std::nullopt;
    const MessageUnit parts = splitUnit(unit);
    const Command* command = findCommand(resolveHeader(parts.header, path));
    const auto override = overrides.empty() ? overrides.end() : overrides.find(upperCase(unit));
    if (override != overrides.end())
        return override->second.empty() ? std::nullopt : std::optional(override->second);
    const Handler handler = command == nullptr ? nullptr
                            : parts.isQuery    ? command->query
                                               : command->set;
    if (handler == nullptr) {
        model.raise(ScpiError::UndefinedHeader);
        return std::nullopt;
    }
    const auto now = Clock::now();
    std::string answer;
    model.run.advance(model.settings, now);
    Request request{model, parts.parameters, answer};
    const ScpiError error = handler(*command, request);
    model.raise(error);
    model.run.settingsChanged(model.settings, now);
    return parts.isQuery && error == ScpiError::None ? std::optional(answer) : std::nullopt;
}
