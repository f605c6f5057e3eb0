// The prototypes of the 78 exported functions: a definition whose signature differs from the list
// does not compile.
#pragma once

#include "visa/visa_functions.h"

#define DECLARE_FIXED(result, name, parameters)                                                    \
    extern "C" VISA_EXPORT result KLV_VISA_FIXED name parameters;
#define DECLARE_VARIADIC(result, name, parameters)                                                 \
    extern "C" VISA_EXPORT result KLV_VISA_VARIADIC name parameters;
KLV_VISA_FUNCTIONS(DECLARE_FIXED, DECLARE_VARIADIC)
#undef DECLARE_FIXED
#undef DECLARE_VARIADIC
