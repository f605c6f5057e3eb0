#pragma once

#include "demo/instrument/quantities.h"

#include <vector>

/// What one section of an instrument file says about one instrument.
struct InstrumentDescription {
    std::string serial = "20215678";
    std::string maker = "Veltro";
    std::string model = "KLV-20G";
    std::string firmware = "2.7.1";
    std::string calibrationDue = "15.03.2027";
    bool massStorage = false;
    bool referencePresent = true; ///< a signal at the external reference input
    unsigned latencyUs = 0;
    Limits limits = defaultLimits();

    /// The VISA address: "USB0::0x5645::0x0040::20215678::0::INSTR".
    std::string address() const;
};

struct DescribedInstruments {
    std::vector<InstrumentDescription> instruments;
    std::string
        fault; ///< "line 3: latencyUs is 0 to 60000000"; none of the text is to be used then
};

/// Reads INI text: a section per instrument, named by its serial, in the order of the text.
/// Keys (any case): maker, model, firmware, calibrationDue (dd.MM.yyyy), massStorage and reference
/// (on or off), latencyUs, and limits such as frequencyMaxHz. What is not understood is skipped,
/// a number out of its range is a fault.
DescribedInstruments parseDescriptions(std::string_view text);

/// The same text with that instrument marked as being in its bootloader, off the bus: its section
/// is named "bootloader SERIAL". Such sections are skipped when read.
std::string inBootloader(std::string_view text, std::string_view serial);

/// The same text with the massStorage keys of that instrument changed or one added, all else kept.
std::string withMassStorage(std::string_view text, std::string_view serial, bool on);
