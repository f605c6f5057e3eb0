#include "demo/control/wire_log.h"

#include "demo/instrument/scpi_text.h"

#include <cstdio>
#include <cstdlib>

namespace
{

constexpr size_t longestReply = 4096;
constexpr size_t transcriptCapacity = 64 << 20;

void trace(std::string_view model, const char* arrow, std::string_view message)
{
    const std::string line =
        std::string(model) + " " + arrow + " " + escaped(trimmed(message)) + "\n";
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr); // Windows buffers it where it is no console
}

} // namespace

WireLog::WireLog()
{
    const char* wish = std::getenv("KLV_DEMO_TRACE");
    m_isTraced = wish != nullptr && *wish != '\0' && std::string_view(wish) != "0";
}

void WireLog::sent(std::string_view model, std::string_view message)
{
    if (m_isTraced)
        trace(model, "<-", message);
    if (m_isKept)
        note("> ", escaped(message));
}

void WireLog::received(std::string_view model, std::string_view reply)
{
    if (m_isTraced)
        trace(model, "->", reply.substr(0, longestReply));
    if (m_isKept && reply.size() <= longestReply)
        note("< ", escaped(reply));
    else if (m_isKept)
        note("< ", escaped(reply.substr(0, longestReply)) + "...");
}

void WireLog::event(std::string_view what, std::string_view detail)
{
    if (m_isKept)
        note(what, detail.empty() ? std::string() : " " + escaped(detail));
}

void WireLog::note(std::string_view prefix, std::string_view text)
{
    if (m_transcript.size() > transcriptCapacity)
        return;
    m_transcript.append(prefix).append(text).append("\n");
}
