#include "demo/instrument/commands.h"

#include <cmath>

namespace
{

constexpr size_t listCapacity = 65536;
/// The lower limit of list frequencies on every model.
constexpr double lowestListFrequencyHz = 1000;

std::vector<double>& listOf(Settings& settings, Quantity quantity)
{
    if (quantity == Quantity::Frequency)
        return settings.listFrequencyHz;
    return quantity == Quantity::Power ? settings.listPowerDbm : settings.listDwellSeconds;
}

ScpiError readListValue(const Command& command, const Model& model, std::string_view text,
                        double& value)
{
    const auto quantity = static_cast<Quantity>(command.index);
    const ScpiError error = readQuantity(model, quantity, text, value);
    if (error != ScpiError::DataOutOfRange || quantity != Quantity::Frequency)
        return error;
    const double wanted = parseNumber(text, Unit::Hertz).value;
    const double lowest = model.description.limits[quantity].minimum;
    if (!(wanted >= lowestListFrequencyHz && wanted < lowest))
        return error;
    value = wanted;
    return ScpiError::None;
}

// Reads all values before the list is touched: a bad one leaves it as it was.
ScpiError readList(const Command& command, const Request& request, std::vector<double>& values)
{
    std::string_view rest = request.parameters;
    if (rest.empty())
        return ScpiError::MissingParameter;
    while (!rest.empty()) {
        const bool isFollowed = rest.find(',') != rest.npos;
        double value = 0;
        const ScpiError error = readListValue(command, request.model, takePart(rest, ','), value);
        if (error != ScpiError::None)
            return error;
        if (isFollowed && rest.empty())
            return ScpiError::MissingParameter;
        if (values.size() == listCapacity)
            return ScpiError::TooMuchData;
        values.push_back(value);
    }
    return ScpiError::None;
}

} // namespace

ScpiError setList(const Command& command, Request& request)
{
    std::vector<double> values;
    const ScpiError error = readList(command, request, values);
    if (error == ScpiError::None)
        listOf(request.model.settings, static_cast<Quantity>(command.index)) = std::move(values);
    return error;
}

ScpiError addToList(const Command& command, Request& request)
{
    std::vector<double>& list =
        listOf(request.model.settings, static_cast<Quantity>(command.index));
    std::vector<double> values = list;
    const ScpiError error = readList(command, request, values);
    if (error == ScpiError::None)
        list = std::move(values);
    return error;
}

ScpiError queryList(const Command& command, Request& request)
{
    const auto quantity = static_cast<Quantity>(command.index);
    const QuantityInfo& info = infoOf(quantity);
    const char* separator = "";
    for (const double value : listOf(request.model.settings, quantity)) {
        request.reply += separator + numberText(value * info.replyScale, info.decimals);
        separator = ",";
    }
    return takeNone(request);
}

ScpiError queryListPoints(const Command& command, Request& request)
{
    const auto quantity = static_cast<Quantity>(command.index);
    request.reply += std::to_string(listOf(request.model.settings, quantity).size());
    return takeNone(request);
}

// With MIN or MAX the family answers the limits of one point's dwell here, not a count.
ScpiError queryDwellPoints(const Command& command, Request& request)
{
    return request.parameters.empty() ? queryListPoints(command, request)
                                      : queryNumber(command, request);
}

ScpiError moveToPoint(const Command&, Request& request)
{
    Model& model = request.model;
    std::string_view text;
    const ScpiError error = takeOnly(request, text);
    if (error != ScpiError::None)
        return error;
    if (model.settings.choice(Choice::ListMode) == 0)
        return ScpiError::SettingsConflict;
    const size_t point = model.run.point();
    const size_t count = model.run.pointCount(model.settings);
    if (matchesKeyword(text, "UP"))
        return model.run.moveTo(model.settings, point < count ? point + 1 : count, Clock::now());
    if (matchesKeyword(text, "DOWN"))
        return model.run.moveTo(model.settings, point > 1 ? point - 1 : 1, Clock::now());
    const ParsedNumber number = parseNumber(text, Unit::None);
    if (number.error != ScpiError::None)
        return number.error;
    const bool isPoint = number.value >= 1 && number.value <= static_cast<double>(listCapacity);
    const size_t target = isPoint ? static_cast<size_t>(number.value) : 0;
    return model.run.moveTo(model.settings, target, Clock::now());
}

ScpiError initiateRun(const Command&, Request& request)
{
    const ScpiError error = takeNone(request);
    if (error != ScpiError::None)
        return error;
    return request.model.run.initiate(request.model.settings, Clock::now());
}
