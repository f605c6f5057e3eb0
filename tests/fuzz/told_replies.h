#pragma once

#include "link/visa_library.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <functional>
#include <string>

/// What the next read yields, as status and text; set by the target.
inline std::function<ViStatus(std::string& text)> tellReply;

/// The room of "%65535T" without its NUL.
constexpr std::size_t replyRoom = 65535;

inline ViStatus takeReply(char* reply)
{
    std::string text;
    const ViStatus status = tellReply(text);
    const std::size_t count = std::min(text.size(), replyRoom);
    std::memcpy(reply, text.data(), count);
    reply[count] = '\0';
    return status;
}

inline ViStatus KLV_VISA_VARIADIC toldScan(ViSession, ViConstString format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    char* reply = va_arg(arguments, char*);
    va_end(arguments);
    return takeReply(reply);
}

inline ViStatus KLV_VISA_VARIADIC toldQuery(ViSession, ViConstString format, ViConstString read,
                                            ...)
{
    va_list arguments;
    va_start(arguments, read);
    if (std::strstr(format, "%lf") != nullptr)
        (void)va_arg(arguments, double);
    char* reply = va_arg(arguments, char*);
    va_end(arguments);
    return takeReply(reply);
}

/// A VISA library whose every read is determined by the target.
struct ToldLibrary : VisaLibrary {
    ToldLibrary()
    {
        viScanf = toldScan;
        viQueryf = toldQuery;
    }
};
