#pragma once

#include "visa/visa.h"

#include <string_view>

/// Copies text into a caller's buffer of VI_FIND_BUFLEN bytes, cut to fit; null is allowed.
void copyText(ViChar* target, std::string_view text);

/// What a status code means in words; null for a code that is not the standard's.
const char* statusText(ViStatus status);
