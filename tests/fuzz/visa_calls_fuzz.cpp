#include "tests/fuzz/fuzz.h"

#include "demo/control/control.h"
#include "visa_library/api.h"

#include <array>
#include <functional>
#include <vector>

/// Any calls of the simulated library one after the other, on sessions that may be closed.
void run(Bytes bytes)
{
    klvDemo("reset");
    klvDemo("timeouts immediate");
    klvDemo("instruments [11]\nmodel=KLV-6G\n[22]\nmodel=KLV-20G");
    std::array<ViSession, 4> objects{};
    viOpenDefaultRM(&objects[0]);
    std::array<char, VI_FIND_BUFLEN> text{};
    std::vector<ViByte> buffer(8192);
    ViUInt32 count = 0;
    ViUInt16 word = 0;
    ViEventType type = 0;
    ViPBuf in = buffer.data();
    std::uint8_t what = 0;
    ViUInt32 amount = 0;
    ViSession* object = nullptr;
    const auto writeBy = [&](auto function) {
        const std::string t = bytes.text();
        function(*object, reinterpret_cast<ViConstBuf>(t.data()), ViUInt32(t.size()), &count);
    };
    // The corpus counts them: new ones go to the end.
    const std::function<void()> calls[] = {
        [&] { viFindRsrc(objects[0], bytes.text().c_str(), object, &count, text.data()); },
        [&] { viFindNext(*object, text.data()); },
        [&] { viOpen(objects[0], "USB::0x5645::0x0040::11", amount % 3, 0, object); },
        [&] { viOpen(objects[0], "USB::0x5645::0x0040::22", VI_NO_LOCK, 0, object); },
        [&] { viClose(*object); },
        [&] { writeBy(viWrite); },
        [&] { viRead(*object, in, amount, &count); },
        [&] { writeBy(viBufWrite); },
        [&] { viBufRead(*object, in, amount, &count); },
        [&] { viSetBuf(*object, bytes.number<ViUInt16>(), amount); },
        [&] { viFlush(*object, bytes.number<ViUInt16>()); },
        [&] { viLock(*object, bytes.byte() % 4, 0, nullptr, text.data()); },
        [&] { viUnlock(*object); },
        [&] {
            const auto attribute = bytes.number<ViAttr>();
            viSetAttribute(*object, attribute, bytes.number<ViUInt16>());
        },
        [&] { viGetAttribute(*object, bytes.number<ViAttr>(), text.data()); },
        [&] {
            const auto event = bytes.number<ViEventType>();
            viEnableEvent(*object, event, bytes.byte(), VI_NULL);
        },
        [&] {
            const auto event = bytes.number<ViEventType>();
            viDisableEvent(*object, event, bytes.byte());
        },
        [&] { viWaitOnEvent(*object, VI_ALL_ENABLED_EVENTS, 0, &type, &objects[what / 96 % 4]); },
        [&] { viReadSTB(*object, &word); },
        [&] { viClear(*object); },
        [&] { viAssertTrigger(*object, bytes.byte() % 2); },
        [&] { viReadAsync(*object, in, amount, &count); },
        [&] { viQueryf(*object, bytes.byte() % 2 ? "*IDN?" : "SYST:ERR?\n", "%4000T", in); },
        [&] { viDiscardEvents(*object, VI_ALL_ENABLED_EVENTS, bytes.byte()); },
    };
    for (int i = 0; i < 64 && !bytes.isEmpty(); ++i) {
        what = bytes.byte();
        object = &objects[what % 4];
        amount = bytes.byte() * 31U;
        calls[what / 4 % std::size(calls)]();
    }
    for (const ViSession each : objects)
        viClose(each);
}
