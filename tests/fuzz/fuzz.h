#pragma once

#include <algorithm>
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
    std::uint8_t byte() { return number<std::uint8_t>(); }
    template <typename Number>
    Number number()
    {
        Number value{};
        const std::string_view piece = m_rest.substr(0, sizeof value);
        std::copy(piece.begin(), piece.end(), reinterpret_cast<char*>(&value));
        m_rest.remove_prefix(piece.size());
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
