#pragma once

#include "demo/instrument/model.h"

#include <optional>
#include <unordered_map>

/// Replies that a test puts in place of the instrument's own, by the upper-case text of the query;
/// an empty one means that the query is not answered at all.
using ReplyOverrides = std::unordered_map<std::string, std::string>;

/// The output queue: replies that have not been read yet. It never blocks.
class OutputQueue
{
public:
    void set(std::string bytes);
    /// From now on there is always more, and the end of the message never comes.
    void setEndless();
    void clear() { set({}); }
    bool isEmpty() const { return !m_isEndless && m_position == m_bytes.size(); }
    bool isUntouched() const { return m_position == 0; }
    /// Takes up to count bytes, up to and with the stop character when there is one (0 to 255).
    std::string take(size_t count, int stopCharacter);
    /// What take() would still give, shortened when endless.
    std::string_view rest() const;

private:
    std::string m_bytes;
    size_t m_position = 0;
    bool m_isEndless = false;
};

/// An instrument on the bus: takes messages, runs their commands on its model, queues the replies,
/// and knows whether it is plugged in. It knows nothing of sessions.
class Instrument
{
public:
    explicit Instrument(InstrumentDescription description);

    /// Takes bytes from the bus; end marks the end of a message, as does a line feed.
    void receive(std::string_view bytes, bool end, const ReplyOverrides& overrides);
    /// A read found nothing: the standard's query error.
    void readWithoutQuery() { model.raise(ScpiError::QueryUnterminated); }
    /// Drops half-received messages and unread replies; settings stay.
    void clearInterface();
    void triggerFromBus();
    /// A pulse edge at the trigger input.
    void pulseTriggerInput(bool rising);
    unsigned statusByte() const;

    /// Removed from the bus until the next plug(); open sessions are lost either way.
    void unplug();
    void plug();
    bool isPresent() const { return m_isPresent; }
    /// Counts the times it came to the bus; a session of an earlier time is lost.
    unsigned plugNumber() const { return m_plugNumber; }

    Model model;
    OutputQueue output;

private:
    void append(std::string_view bytes);
    void execute(const std::string& bytes, const ReplyOverrides& overrides);
    /// What a query answers; nothing for a command and for what fails.
    std::optional<std::string> executeUnit(std::string_view unit, std::string& path,
                                           const ReplyOverrides& overrides);

    std::string m_input;
    bool m_isPresent = true;
    unsigned m_plugNumber = 1;
};
