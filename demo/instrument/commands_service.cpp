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

std::string calibrationPoints(Model& model)
{
    std::string points;
    const char* separator = "";
    for (const auto& [frequencyHz, value] : model.calibration.points()) {
        points += separator + numberText(frequencyHz, 0) + " " + numberText(value, 3);
        separator = " ";
    }
    return points;
}

// Drifts by two degrees around 38 within ten minutes.
std::string temperature(Model&)
{
    const double seconds = static_cast<double>(Clock::now().count()) * 1e-6;
    return numberText(38 + 2 * std::sin(seconds / 95), 1);
}
