#pragma once

#include "demo/instrument/description.h"

#include <vector>

/// The instruments that a text describes, one section each.
struct DescribedInstruments {
    std::vector<InstrumentDescription> instruments;
    /// "line 3: latencyUs is 0 to 60000000"; none of the text is to be used then.
    std::string fault;
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
