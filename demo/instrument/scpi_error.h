#pragma once

#include <deque>
#include <set>
#include <string>

// The result of a command. Positive codes are the instrument's own.
enum class ScpiError : int {
    None = 0,
    InvalidCharacter = -101,
    DataType = -104,
    ParameterNotAllowed = -108,
    MissingParameter = -109,
    UndefinedHeader = -113,
    NumericData = -120,
    InvalidSuffix = -131,
    TriggerIgnored = -211,
    InitIgnored = -213,
    SettingsConflict = -221,
    DataOutOfRange = -222,
    TooMuchData = -223,
    IllegalParameter = -224,
    ListsNotSameLength = -226,
    QueueOverflow = -350,
    InputBufferOverrun = -363,
    QueryInterrupted = -410,
    QueryUnterminated = -420,
    ReferenceUnlocked = 328,
    SynthesizerUnlocked = 329,
};

/// The standard event status bit that an error of this code sets.
unsigned char eventStatusBit(int code);

/// The instrument's error queue: first in, first out, 32 entries. A standing condition is reported
/// once per drain (between two "no error" replies) for as long as it lasts.
class ErrorQueue
{
public:
    /// Adds an error; on a full queue the last entry becomes -350. Empty text: the standard's own.
    void push(int code, const std::string& text = {});
    /// Takes the oldest entry as the reply to SYSTem:ERRor?, `0,"No error"` when there is none.
    std::string pop();
    void clear();
    void setCondition(int code, bool standing);
    /// Makes the queue never run empty (as a broken instrument might); 0 ends it.
    void setEndless(int code) { m_endlessCode = code; }
    size_t size() const { return m_entries.size(); }

private:
    std::deque<std::string> m_entries;
    std::set<int> m_conditions;
    std::set<int> m_unreported;
    int m_endlessCode = 0;
};
