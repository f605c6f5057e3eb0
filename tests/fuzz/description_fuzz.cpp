#include "tests/fuzz/fuzz.h"

#include "demo/control/description_file.h"
#include "demo/instrument/instrument.h"

namespace
{

const InstrumentDescription* find(const std::vector<InstrumentDescription>& all,
                                  const std::string& serial)
{
    const auto found = std::find_if(all.begin(), all.end(), [&](const InstrumentDescription& one) {
        return one.serial == serial;
    });
    return found == all.end() ? nullptr : &*found;
}

} // namespace

/// The file of simulated instruments: what is accepted can be worked with, and marking one of them
/// changes that one alone.
void run(Bytes bytes)
{
    const bool isOn = bytes.byte() % 2 == 0;
    const std::string text = bytes.rest();
    const DescribedInstruments described = parseDescriptions(text);
    if (!described.fault.empty())
        return;
    for (const InstrumentDescription& one : described.instruments) {
        Instrument instrument(one);
        instrument.receive("FREQ MAX;FREQ?;:SWE:POIN MAX;:FREQ:MODE SWE;:INIT;:FREQ:CURR?", true,
                           {});
        const auto others = parseDescriptions(withMassStorage(text, one.serial, isOn)).instruments;
        const InstrumentDescription* same = find(others, one.serial);
        PROMISE(others.size() == described.instruments.size() && same && same->massStorage == isOn);
        const std::string without = inBootloader(text, one.serial);
        PROMISE(!find(parseDescriptions(without).instruments, one.serial));
    }
}
