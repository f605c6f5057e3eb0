#pragma once

#include <string>
#include <string_view>

/// Records what passes between host and instruments: for a person on stderr (KLV_DEMO_TRACE=1), and
/// for tests as a transcript of lines, kept from the first use of the control interface on.
class WireLog
{
public:
    WireLog();

    void sent(std::string_view model, std::string_view message);
    void received(std::string_view model, std::string_view reply);
    /// Anything else, as one line of the transcript: "open ADDRESS".
    void event(std::string_view what, std::string_view detail = {});

    void startTranscript() { m_isKept = true; }
    void clear() { m_transcript.clear(); }
    const std::string& transcript() const { return m_transcript; }

private:
    void note(std::string_view prefix, std::string_view text);

    bool m_isTraced;
    bool m_isKept = false;
    std::string m_transcript;
};
