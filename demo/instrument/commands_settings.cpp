#include "demo/instrument/commands.h"

#include <algorithm>
#include <cmath>

namespace
{

// "MIN", "MAX" and "DEF" stand for a number, in commands and queries alike.
bool readNamedNumber(const Model& model, Quantity quantity, std::string_view text, double& value)
{
    const Range& range = model.description.limits[quantity];
    if (matchesKeyword(text, "MINimum"))
        value = range.minimum;
    else if (matchesKeyword(text, "MAXimum"))
        value = range.maximum;
    else if (matchesKeyword(text, "DEFault"))
        value = range.bounded(infoOf(quantity).reset);
    else
        return false;
    return true;
}

std::string quantityReply(Quantity quantity, double value)
{
    const QuantityInfo& info = infoOf(quantity);
    return numberText(value * info.replyScale, info.decimals) + info.replySuffix;
}

} // namespace

ScpiError readQuantity(const Model& model, Quantity quantity, std::string_view text, double& value)
{
    const QuantityInfo& info = infoOf(quantity);
    const ParsedNumber number = parseNumber(text, info.unit);
    if (number.error != ScpiError::None)
        return readNamedNumber(model, quantity, text, value) ? ScpiError::None : number.error;
    const Range& range = model.description.limits[quantity];
    const double resolution = std::pow(10.0, -info.decimals) / info.replyScale;
    const double rounded = std::round(number.value / resolution) * resolution;
    // "50 US" and "5e-05" differ in the last bit: the limits are meant, not their representation.
    const double slack = 1e-9 * std::max(std::abs(range.minimum), std::abs(range.maximum));
    if (!(rounded >= range.minimum - slack && rounded <= range.maximum + slack))
        return ScpiError::DataOutOfRange;
    value = range.bounded(rounded);
    return ScpiError::None;
}

ScpiError setNumber(const Command& command, Request& request)
{
    const auto quantity = static_cast<Quantity>(command.index);
    std::string_view text;
    double value = 0;
    ScpiError error = takeOnly(request, text);
    if (error == ScpiError::None)
        error = readQuantity(request.model, quantity, text, value);
    if (error == ScpiError::None)
        request.model.settings.number(quantity) = value;
    return error;
}

ScpiError queryNumber(const Command& command, Request& request)
{
    const auto quantity = static_cast<Quantity>(command.index);
    double value = request.model.settings.number(quantity);
    if (!request.parameters.empty() &&
        !readNamedNumber(request.model, quantity, request.parameters, value))
        return ScpiError::IllegalParameter;
    request.reply += quantityReply(quantity, value);
    return ScpiError::None;
}

ScpiError setSwitch(const Command& command, Request& request)
{
    std::string_view text;
    const ScpiError error = takeOnly(request, text);
    if (error != ScpiError::None)
        return error;
    const ParsedNumber number = parseNumber(text, Unit::None);
    bool& isOn = request.model.settings.switches[command.index];
    if (equalIgnoringCase(text, "ON"))
        isOn = true;
    else if (equalIgnoringCase(text, "OFF"))
        isOn = false;
    else if (number.error == ScpiError::None)
        isOn = std::llround(number.value) != 0;
    else
        return ScpiError::IllegalParameter;
    return ScpiError::None;
}

ScpiError querySwitch(const Command& command, Request& request)
{
    request.reply += request.model.settings.switches[command.index] ? '1' : '0';
    return takeNone(request);
}

ScpiError setChoice(const Command& command, Request& request)
{
    std::string_view text;
    const ScpiError error = takeOnly(request, text);
    if (error != ScpiError::None)
        return error;
    std::string_view keywords = command.keywords;
    for (size_t value = 0; !keywords.empty(); ++value) {
        if (!matchesKeyword(text, takePart(keywords, '|')))
            continue;
        request.model.settings.choices[command.index] = value;
        request.model.updateReferenceCondition();
        return ScpiError::None;
    }
    return ScpiError::IllegalParameter;
}

ScpiError queryChoice(const Command& command, Request& request)
{
    std::string_view keywords = command.keywords;
    for (size_t skipped = 0; skipped < request.model.settings.choices[command.index]; ++skipped)
        takePart(keywords, '|');
    request.reply += shortForm(takePart(keywords, '|'));
    return takeNone(request);
}
