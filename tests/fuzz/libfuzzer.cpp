#include "tests/fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    run(Bytes({reinterpret_cast<const char*>(data), size}));
    return 0;
}
