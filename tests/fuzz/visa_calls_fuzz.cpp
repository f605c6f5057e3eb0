#include "tests/fuzz/fuzz.h"

#include "demo/control/control.h"
#include "visa_library/api.h"

#include <array>
#include <vector>

/// Any calls of the simulated library one after the other, on sessions that may be closed.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    klvDemo("reset");
    klvDemo("timeouts immediate");
    klvDemo("instruments [11]\nmodel=KLV-6G\n[22]\nmodel=KLV-20G");
    Bytes bytes(data, size);
    std::array<ViSession, 4> objects{};
    viOpenDefaultRM(&objects[0]);
    std::array<char, VI_FIND_BUFLEN> text{};
    std::vector<ViByte> buffer(8192);
    ViUInt32 count = 0;
    ViUInt16 word = 0;
    ViPBuf in = buffer.data();
    for (int i = 0; i < 64 && !bytes.isEmpty(); ++i) {
        const std::uint8_t what = bytes.byte();
        ViSession& object = objects[what % 4];
        const ViUInt32 amount = bytes.byte() * 31U;
        switch (what / 4 % 24) {
        case 0:
            viFindRsrc(objects[0], bytes.text().c_str(), &object, &count, text.data());
            break;
        case 1:
            viFindNext(object, text.data());
            break;
        case 2:
            viOpen(objects[0], "USB0::0x5645::0x0040::11::0::INSTR", amount % 3, 0, &object);
            break;
        case 3:
            viOpen(objects[0], "USB0::0x5645::0x0040::22::0::INSTR", VI_NULL, 0, &object);
            break;
        case 4:
            viClose(object);
            break;
        case 5: {
            const std::string t = bytes.text();
            viWrite(object, reinterpret_cast<ViConstBuf>(t.data()), ViUInt32(t.size()), &count);
            break;
        }
        case 6:
            viRead(object, in, amount, &count);
            break;
        case 7: {
            const std::string t = bytes.text();
            viBufWrite(object, reinterpret_cast<ViConstBuf>(t.data()), ViUInt32(t.size()), &count);
            break;
        }
        case 8:
            viBufRead(object, in, amount, &count);
            break;
        case 9:
            viSetBuf(object, bytes.number<ViUInt16>(), amount);
            break;
        case 10:
            viFlush(object, bytes.number<ViUInt16>());
            break;
        case 11:
            viLock(object, bytes.byte() % 4, 0, nullptr, text.data());
            break;
        case 12:
            viUnlock(object);
            break;
        case 13:
            viSetAttribute(object, bytes.number<ViAttr>(), bytes.number<ViUInt16>());
            break;
        case 14: {
            std::array<char, VI_FIND_BUFLEN> value{};
            viGetAttribute(object, bytes.number<ViAttr>(), value.data());
            break;
        }
        case 15:
            viEnableEvent(object, bytes.number<ViEventType>(), bytes.byte(), VI_NULL);
            break;
        case 16:
            viDisableEvent(object, bytes.number<ViEventType>(), bytes.byte());
            break;
        case 17: {
            ViEventType type = 0;
            viWaitOnEvent(object, VI_ALL_ENABLED_EVENTS, 0, &type, &objects[what / 96 % 4]);
            break;
        }
        case 18:
            viReadSTB(object, &word);
            break;
        case 19:
            viClear(object);
            break;
        case 20:
            viAssertTrigger(object, bytes.byte() % 2);
            break;
        case 21:
            viReadAsync(object, in, amount, &count);
            break;
        case 22: {
            std::array<char, 4096> reply{};
            viQueryf(object, (bytes.byte() % 2 ? "*IDN?" : "SYST:ERR?\n"), "%4000T", reply.data());
            break;
        }
        case 23:
            viDiscardEvents(object, VI_ALL_ENABLED_EVENTS, bytes.byte());
            break;
        }
    }
    for (const ViSession object : objects)
        viClose(object);
    return 0;
}
