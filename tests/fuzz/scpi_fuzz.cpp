#include "tests/fuzz/fuzz.h"

#include "demo/instrument/clock.h"
#include "demo/instrument/instrument.h"

/// The simulated instrument takes any messages, with time and triggers between them.
void run(Bytes bytes)
{
    Clock::reset();
    Clock::stop();
    Instrument instrument{InstrumentDescription()};
    while (!bytes.isEmpty()) {
        const std::uint8_t what = bytes.byte();
        switch (what % 8) {
        case 0:
            Clock::advance(Clock::Microseconds(bytes.number<std::uint32_t>()));
            break;
        case 1:
            instrument.triggerFromBus();
            break;
        case 2:
            instrument.pulseTriggerInput(what > 127);
            break;
        case 3:
            instrument.output.take(what, what > 127 ? '\n' : -1);
            break;
        default:
            instrument.receive(bytes.text(), what < 200, {});
        }
        instrument.statusByte();
    }
    instrument.receive("FREQ:CURR?;:POW:CURR?;:LIST:POIN:CURR?;:TRIG:STAT?", true, {});
}
