#include "demo/instrument/scpi_error.h"

#include <algorithm>
#include <iterator>

namespace
{

struct ErrorText {
    ScpiError error;
    const char* text;
};

const ErrorText errorTexts[] = {
    {ScpiError::None, "No error"},
    {ScpiError::InvalidCharacter, "Invalid character"},
    {ScpiError::DataType, "Data type error"},
    {ScpiError::ParameterNotAllowed, "Parameter not allowed"},
    {ScpiError::MissingParameter, "Missing parameter"},
    {ScpiError::UndefinedHeader, "Undefined header"},
    {ScpiError::NumericData, "Numeric data error"},
    {ScpiError::InvalidSuffix, "Invalid suffix"},
    {ScpiError::TriggerIgnored, "Trigger ignored"},
    {ScpiError::InitIgnored, "Init ignored"},
    {ScpiError::SettingsConflict, "Settings conflict"},
    {ScpiError::DataOutOfRange, "Data out of range"},
    {ScpiError::TooMuchData, "Too much data"},
    {ScpiError::IllegalParameter, "Illegal parameter value"},
    {ScpiError::ListsNotSameLength, "Lists not same length"},
    {ScpiError::QueueOverflow, "Queue overflow"},
    {ScpiError::InputBufferOverrun, "Input buffer overrun"},
    {ScpiError::QueryInterrupted, "Query INTERRUPTED"},
    {ScpiError::QueryUnterminated, "Query UNTERMINATED"},
    {ScpiError::ReferenceUnlocked, "External reference not locked"},
    {ScpiError::SynthesizerUnlocked, "Synthesizer not locked"},
};

constexpr size_t capacity = 32;

std::string entry(int code, const std::string& text = {})
{
    const auto known =
        std::find_if(std::begin(errorTexts), std::end(errorTexts),
                     [code](const ErrorText& row) { return static_cast<int>(row.error) == code; });
    const std::string standard = known != std::end(errorTexts) ? known->text : "Device error";
    return std::to_string(code) + ",\"" + (text.empty() ? standard : text) + "\"";
}

} // namespace

unsigned char eventStatusBit(int code)
{
    if (code > 0 || code <= -300)
        return code <= -400 ? 0x04 : 0x08;
    return code <= -200 ? 0x10 : 0x20;
}

void ErrorQueue::push(int code, const std::string& text)
{
    if (m_entries.size() < capacity)
        m_entries.push_back(entry(code, text));
    else
        m_entries.back() = entry(static_cast<int>(ScpiError::QueueOverflow));
}

std::string ErrorQueue::pop()
{
    if (!m_entries.empty()) {
        std::string oldest = std::move(m_entries.front());
        m_entries.pop_front();
        return oldest;
    }
    if (!m_unreported.empty()) {
        const int code = *m_unreported.begin();
        m_unreported.erase(m_unreported.begin());
        return entry(code);
    }
    m_unreported = m_conditions;
    return entry(m_endlessCode);
}

void ErrorQueue::clear()
{
    m_entries.clear();
    m_unreported = m_conditions;
}

void ErrorQueue::setCondition(int code, bool standing)
{
    if (standing && m_conditions.insert(code).second)
        m_unreported.insert(code);
    if (!standing && m_conditions.erase(code) > 0)
        m_unreported.erase(code);
}
