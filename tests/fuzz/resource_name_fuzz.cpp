#include "tests/fuzz/fuzz.h"

#include "visa_library/resource_filter.h"
#include "visa_library/resource_name.h"

/// VISA resource names and search expressions: a name that is read is written and read the same,
/// and no expression takes long.
void run(Bytes bytes)
{
    const std::string name = bytes.text();
    ResourceName parsed;
    if (parseResourceName(name, parsed)) {
        ResourceName again;
        const std::string whole = parsed.text();
        PROMISE(whole.size() >= VI_FIND_BUFLEN || parseResourceName(whole, again));
        PROMISE(whole.size() >= VI_FIND_BUFLEN || again.text() == whole);
    }
    if (const auto filter = ResourceFilter::from(bytes.rest()))
        filter->matches({{0, 0x5645, 0x0040, "20215678", 0}, "Veltro", "KLV-6G"});
}
