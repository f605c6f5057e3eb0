#pragma once

#include "demo/instrument/description.h"
#include "demo/instrument/settings.h"
#include "demo/instrument/sweep_engine.h"

#include <utility>

/// The points of the output calibration: the copy in use and the one that survives a reset.
class CalibrationTable
{
public:
    using Point = std::pair<double, double>; ///< frequency in hertz, value

    explicit CalibrationTable(double maximumHz);
    /// The first point after a save or a reset starts a new table.
    void add(double frequencyHz, double value);
    void save();
    void reload();
    const std::vector<Point>& points() const { return m_working; }

private:
    std::vector<Point> m_stored;
    std::vector<Point> m_working;
    bool m_isWriting = false;
};

/// One generator as its commands see it: everything it holds, nothing of how messages arrive.
struct Model {
    explicit Model(InstrumentDescription what);

    /// What *RST does; the calibration, the DAC and the mass storage mode stay.
    void reset();
    void raise(ScpiError error);
    void raise(int code, const std::string& text = {});
    /// Updates the error queue: whether the external reference is selected and missing.
    void updateReferenceCondition();
    /// The status byte without the message-available bit.
    unsigned statusByte() const;

    InstrumentDescription description;
    Settings settings;
    ErrorQueue errors;
    SweepEngine run;
    CalibrationTable calibration;
    unsigned char eventStatus = 0x80; ///< standard event status register: power on
    unsigned char eventEnable = 0;
    unsigned char serviceEnable = 0;
    bool reenumerates = false; ///< a command switched the USB mode: the bus must follow
    bool leavesBus = false;    ///< a command started the bootloader
};
