// What a USB instrument cannot do: registers, memory, trigger lines and the lines of other buses.
#include "visa_library/api.h"
#include "visa_library/session.h"

// The bodies are generated from the list of signatures, which names every parameter.
#pragma GCC diagnostic ignored "-Wunused-parameter"

namespace
{

ViStatus unsupported(ViSession session)
{
    const VisaCall call;
    return call.library.objects.find<Session>(session) == nullptr ? VI_ERROR_INV_OBJECT
                                                                  : VI_ERROR_NSUP_OPER;
}

} // namespace

// viPeek and viPoke return nothing: the cast lets one body serve both kinds.
#define UNSUPPORTED(result, name, parameters)                                                      \
    result KLV_VISA_FIXED name parameters                                                          \
    {                                                                                              \
        return static_cast<result>(unsupported(session));                                          \
    }
KLV_VISA_REGISTER_FUNCTIONS(UNSUPPORTED, UNSUPPORTED)
KLV_VISA_LINE_FUNCTIONS(UNSUPPORTED, UNSUPPORTED)
