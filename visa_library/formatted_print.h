#pragma once

#include "visa/visa.h"

#include <string>
#include <vector>

/// A variable argument list that can be passed on and continues where it was left.
struct Arguments {
    va_list list;

    template <typename Value>
    Value next()
    {
        // The code that fills the list begins it.
        // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
        return va_arg(list, Value);
    }
};

/// The result of a write format and its arguments.
struct PrintedText {
    std::string text;
    std::vector<size_t> ends; ///< after each line feed of the format, where a message ends
};

/// Formats by the VISA rules: conversions d i u o x X e E f g G s c b and %%, with flags, width,
/// precision ("*" for either) and the sizes h l ll L; \n \r \t \\ \" and \ooo written out.
/// %b takes a count (a width or "*") and a buffer and makes a definite-length block.
/// Errors: VI_ERROR_INV_FMT (also for more than 1 048 576 characters in one field),
/// VI_ERROR_NSUP_FMT (arrays and the "@" numeric forms).
ViStatus printFormatted(const char* format, Arguments& arguments, PrintedText& printed);
