#include "demo/instrument/commands.h"

namespace
{

ScpiError readRegister(const Request& request, unsigned char& value)
{
    std::string_view text;
    ScpiError error = takeOnly(request, text);
    if (error != ScpiError::None)
        return error;
    const ParsedNumber number = parseNumber(text, Unit::None);
    if (number.error != ScpiError::None)
        return number.error;
    if (number.value < 0 || number.value > 255)
        return ScpiError::DataOutOfRange;
    value = static_cast<unsigned char>(number.value);
    return ScpiError::None;
}

} // namespace

ScpiError takeNone(const Request& request)
{
    return request.parameters.empty() ? ScpiError::None : ScpiError::ParameterNotAllowed;
}

ScpiError takeOnly(const Request& request, std::string_view& parameter)
{
    parameter = request.parameters;
    if (parameter.empty())
        return ScpiError::MissingParameter;
    return parameter.find(',') == parameter.npos ? ScpiError::None : ScpiError::ParameterNotAllowed;
}

ScpiError queryAnswer(const Command& command, Request& request)
{
    request.reply += command.answer(request.model);
    return takeNone(request);
}

ScpiError doAction(const Command& command, Request& request)
{
    command.action(request.model);
    return takeNone(request);
}

ScpiError setEventEnable(const Command&, Request& request)
{
    return readRegister(request, request.model.eventEnable);
}

ScpiError setServiceEnable(const Command&, Request& request)
{
    return readRegister(request, request.model.serviceEnable);
}

ScpiError triggerFromBus(const Command&, Request& request)
{
    const ScpiError error = takeNone(request);
    if (error != ScpiError::None)
        return error;
    return request.model.run.trigger(request.model.settings, TriggerSource::Bus, Clock::now());
}
