#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

/// The bytes of one run, taken piece by piece; empty when they have run out.
class Bytes
{
public:
    explicit Bytes(std::string_view bytes) : m_rest(bytes) {}

    bool isEmpty() const { return m_rest.empty(); }
    std::uint8_t byte()
    {
        const std::string_view one = m_rest.substr(0, 1);
        m_rest.remove_prefix(one.size());
        return one.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(one.front());
    }
    template <typename Number>
    Number number()
    {
        Number value{};
        auto* bytes = reinterpret_cast<std::uint8_t*>(&value);
        for (std::size_t i = 0; i < sizeof value; ++i)
            bytes[i] = byte();
        return value;
    }
    /// Up to the next 0xFF, which no UTF-8 has.
    std::string text()
    {
        const std::size_t end = m_rest.find('\xFF');
        const std::string piece(m_rest.substr(0, end));
        m_rest.remove_prefix(end == m_rest.npos ? m_rest.size() : end + 1);
        return piece;
    }
    std::string rest() { return std::string(std::exchange(m_rest, {})); }

private:
    std::string_view m_rest;
};

/// Ends the program where a guarantee is broken, so that the input is saved.
#define PROMISE(condition)                                                                         \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: broken promise: %s\n", __FILE__, __LINE__, #condition);   \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)

/// One run of a target.
void run(Bytes bytes);
