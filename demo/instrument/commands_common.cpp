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

ScpiError clearStatus(const Command&, Request& request)
{
    request.model.errors.clear();
    request.model.eventStatus = 0;
    return takeNone(request);
}

ScpiError setEventEnable(const Command&, Request& request)
{
    return readRegister(request, request.model.eventEnable);
}

ScpiError queryEventEnable(const Command&, Request& request)
{
    request.reply += std::to_string(request.model.eventEnable);
    return takeNone(request);
}

ScpiError queryEventStatus(const Command&, Request& request)
{
    request.reply += std::to_string(request.model.eventStatus);
    request.model.eventStatus = 0;
    return takeNone(request);
}

ScpiError queryIdentity(const Command&, Request& request)
{
    const InstrumentDescription& what = request.model.description;
    request.reply += what.maker + "," + what.model + "," + what.serial + "," + what.firmware;
    return takeNone(request);
}

// Every command is complete when it has been executed.
ScpiError setOperationComplete(const Command&, Request& request)
{
    request.model.eventStatus |= 0x01;
    return takeNone(request);
}

ScpiError queryOperationComplete(const Command&, Request& request)
{
    request.reply += '1';
    return takeNone(request);
}

ScpiError resetInstrument(const Command&, Request& request)
{
    request.model.reset();
    return takeNone(request);
}

ScpiError setServiceEnable(const Command&, Request& request)
{
    return readRegister(request, request.model.serviceEnable);
}

ScpiError queryServiceEnable(const Command&, Request& request)
{
    request.reply += std::to_string(request.model.serviceEnable);
    return takeNone(request);
}

ScpiError queryStatusByte(const Command&, Request& request)
{
    request.reply += std::to_string(request.model.statusByte());
    return takeNone(request);
}

ScpiError triggerFromBus(const Command&, Request& request)
{
    const ScpiError error = takeNone(request);
    if (error != ScpiError::None)
        return error;
    return request.model.run.trigger(request.model.settings, TriggerSource::Bus, Clock::now());
}

ScpiError querySelfTest(const Command&, Request& request)
{
    request.reply += '0';
    return takeNone(request);
}

ScpiError waitToContinue(const Command&, Request& request)
{
    return takeNone(request);
}

ScpiError queryError(const Command&, Request& request)
{
    request.reply += request.model.errors.pop();
    return takeNone(request);
}

ScpiError queryErrorCount(const Command&, Request& request)
{
    request.reply += std::to_string(request.model.errors.size());
    return takeNone(request);
}

ScpiError queryScpiVersion(const Command&, Request& request)
{
    request.reply += "1999.0";
    return takeNone(request);
}
