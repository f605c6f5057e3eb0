#include "demo/instrument/commands.h"

#include <cmath>

// Switching the USB mode makes the instrument leave the bus and come back as another device.
ScpiError setMassStorage(const Command&, Request& request)
{
    std::string_view text;
    const ScpiError error = takeOnly(request, text);
    if (error != ScpiError::None)
        return error;
    const bool isOn = equalIgnoringCase(text, "ON") || text == "1";
    if (!isOn && !equalIgnoringCase(text, "OFF") && text != "0")
        return ScpiError::IllegalParameter;
    Model& model = request.model;
    model.reenumerates = model.reenumerates || isOn != model.description.massStorage;
    model.description.massStorage = isOn;
    return ScpiError::None;
}

ScpiError queryMassStorage(const Command&, Request& request)
{
    request.reply += request.model.description.massStorage ? "ON" : "OFF";
    return takeNone(request);
}

ScpiError startBootloader(const Command&, Request& request)
{
    request.model.leavesBus = true;
    return takeNone(request);
}

ScpiError queryCalibrationCount(const Command&, Request& request)
{
    request.reply += std::to_string(request.model.calibration.points().size());
    return takeNone(request);
}

ScpiError queryCalibrationPoints(const Command&, Request& request)
{
    const char* separator = "";
    for (const auto& [frequencyHz, value] : request.model.calibration.points()) {
        request.reply += separator + numberText(frequencyHz, 0) + " " + numberText(value, 3);
        separator = " ";
    }
    return takeNone(request);
}

// "MEM:TABLE:ADD 1500000000 -3": a blank, not a comma, stands between the two numbers.
ScpiError addCalibrationPoint(const Command&, Request& request)
{
    std::string_view rest = request.parameters;
    const ParsedNumber frequency = parseNumber(takePart(rest, ' '), Unit::Hertz);
    const ParsedNumber value = parseNumber(rest, Unit::None);
    if (frequency.error != ScpiError::None)
        return frequency.error;
    if (value.error != ScpiError::None)
        return value.error;
    const Range& range = request.model.description.limits[Quantity::Frequency];
    if (frequency.value < 0 || frequency.value > range.maximum)
        return ScpiError::DataOutOfRange;
    request.model.calibration.add(frequency.value, value.value);
    return ScpiError::None;
}

ScpiError saveCalibration(const Command&, Request& request)
{
    request.model.calibration.save();
    return takeNone(request);
}

ScpiError queryCalibrationDue(const Command&, Request& request)
{
    request.reply += request.model.description.calibrationDue;
    return takeNone(request);
}

// Drifts by two degrees around 38 within ten minutes.
ScpiError queryTemperature(const Command&, Request& request)
{
    const double seconds = static_cast<double>(Clock::now().count()) * 1e-6;
    request.reply += numberText(38 + 2 * std::sin(seconds / 95), 1);
    return takeNone(request);
}
