#include "tests/fuzz/fuzz.h"

#include "visa_library/formatted_scan.h"

#include <array>
#include <cstdarg>
#include <cstring>
#include <sys/mman.h>
#include <vector>

namespace
{

constexpr std::size_t bufferSize = 0x2000;
constexpr std::size_t stride = 2 * bufferSize; // an unmapped one behind each
constexpr std::uintptr_t base = 0x80000;
constexpr int bufferCount = 16;

char* buffer(int index)
{
    return reinterpret_cast<char*>(base + static_cast<std::size_t>(index % bufferCount) * stride);
}

void mapBuffers()
{
    static bool isMapped = false;
    for (int i = 0; i < bufferCount && !isMapped; ++i)
        if (mmap(buffer(i), bufferSize, PROT_READ | PROT_WRITE,
                 MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0) != buffer(i))
            std::abort();
    isMapped = true;
}

class Text : public ScanSource
{
public:
    explicit Text(std::string_view text) : m_text(text) {}
    std::string_view available() override { return m_text.substr(0, 1 + m_text.size() / 3); }
    void consume(size_t count) override { m_text.remove_prefix(count); }
    void beginConversion() override {}
    ViStatus status() const override { return m_text.empty() ? VI_ERROR_TMO : VI_SUCCESS; }

private:
    std::string_view m_text;
};

template <typename Action>
void with(Action action, ...)
{
    Arguments arguments;
    va_start(arguments.list, action);
    action(arguments);
    va_end(arguments.list);
}

template <typename Action>
void withBuffers(Action action, const std::array<double, 4>& n)
{
    const auto b = [](int i) { return buffer(i); };
    with(action, b(0), n[0], b(1), n[1], b(2), n[2], b(3), n[3], b(4), n[0], b(5), n[1], b(6), n[2],
         b(7), n[3], b(8), b(9), b(10), b(11), b(12), b(13), b(14), b(15), b(0), b(1), b(2), b(3),
         b(4), b(5), b(6), b(7), b(8), b(9), b(10), b(11), b(12), b(13), b(14), b(15));
}

/// Too many conversions, or widths beyond the buffers, are the caller's own fault.
bool isFair(const std::string& format)
{
    std::size_t width = 0;
    for (const char c : format) {
        width = c >= '0' && c <= '9' ? width * 10 + static_cast<std::size_t>(c - '0') : 0;
        if (width >= bufferSize)
            return false;
    }
    const auto isFloating = [](char c) { return std::strchr("eEfgG", c) != nullptr && c != 0; };
    return std::count_if(format.begin(), format.end(), isFloating) <= 8 &&
           std::count(format.begin(), format.end(), '%') +
                   std::count(format.begin(), format.end(), '*') +
                   std::count(format.begin(), format.end(), '#') <
               24;
}

} // namespace

/// Formatted writing and reading of the simulated library with any format: nothing is written
/// beyond the room of an argument. Each argument is the address of a buffer of its own, low enough
/// to do for a width as well.
void run(Bytes bytes)
{
    mapBuffers();
    const bool isScan = bytes.byte() % 2 == 0;
    const std::uint32_t room = bytes.number<std::uint16_t>() % bufferSize;
    const std::array<double, 4> numbers = {bytes.number<double>(), bytes.number<double>(), 1e300,
                                           -0.0};
    const std::string format = bytes.text().substr(0, 200);
    const std::string text = bytes.rest().substr(0, bufferSize - 1);
    // A block of "*" bytes would be one of an address.
    const bool hasBlock = format.find_first_of("bB") != format.npos;
    if (!isFair(format.c_str()) || (hasBlock && format.find('*') != format.npos))
        return;
    for (int i = 0; i < bufferCount; ++i) {
        std::memset(buffer(i), 0, bufferSize);
        std::memcpy(buffer(i), isScan ? reinterpret_cast<const char*>(&room) : text.c_str(),
                    isScan ? sizeof room : std::min<std::size_t>(text.size(), 64));
    }
    if (isScan) {
        Text source(text);
        withBuffers([&](Arguments& a) { scanFormatted(format.c_str(), a, source); }, numbers);
    } else {
        PrintedText printed;
        withBuffers([&](Arguments& a) { printFormatted(format.c_str(), a, printed); }, numbers);
        for (const std::size_t end : printed.ends)
            PROMISE(end <= printed.text.size());
    }

    // "#" stays within the room: the sanitizer of the heap checks it.
    static const char* const roomy[] = {"%#T", "%#s", "%#t", "%#[^x]", "%#b"};
    for (const char* each : roomy) {
        std::vector<char> exact(room % 64 + 1);
        auto count = static_cast<ViUInt32>(exact.size());
        Text source(text);
        with([&](Arguments& a) { scanFormatted(each, a, source); }, &count, exact.data());
        PROMISE(count <= exact.size());
    }
}
