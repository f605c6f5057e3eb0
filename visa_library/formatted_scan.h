#pragma once

#include "visa_library/formatted_print.h"

#include <string_view>

/// Where scanned bytes come from: messages, each with an end.
class ScanSource
{
public:
    virtual ~ScanSource() = default;
    /// The bytes available; fetches more when there are none. Empty at the end of the message and
    /// on a failure.
    virtual std::string_view available() = 0;
    virtual void consume(size_t count) = 0;
    /// Called before a conversion, which may continue with the next message.
    virtual void beginConversion() = 0;
    virtual ViStatus status() const = 0;
};

/// Scans by the VISA rules: conversions d i u x o e f g s c [..] t T b and %%, with a width, "*"
/// (skip) and the sizes h l ll L. In place of a width, "#" takes it from a ViUInt32*: the room for
/// %s %c %[ %t %T %b with its closing NUL on the way in, the bytes stored on the way out.
/// %t reads to the end of the message, %T to a line feed or that end, %b a block.
/// Errors: VI_ERROR_INV_FMT (also if the bytes do not fit the format), VI_ERROR_NSUP_FMT, and the
/// source's.
ViStatus scanFormatted(const char* format, Arguments& arguments, ScanSource& source);
