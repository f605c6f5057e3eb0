#pragma once

#include "demo/instrument/model.h"

/// One command or query on its way through its handler.
struct Request {
    Model& model;
    std::string_view parameters; ///< all that follows the header, trimmed
    std::string& reply;          ///< a query appends its answer here
};

struct Command;
using Handler = ScpiError (*)(const Command& command, Request& request);
/// What a query without parameters answers, and what a command without any does.
using Answer = std::string (*)(Model& model);
using Action = void (*)(Model& model);

/// A row of the command table: a header in SCPI notation (capitals are the short form, brackets
/// hold what may be left out) and what it and its query do.
struct Command {
    std::string pattern;
    Handler set;
    Handler query;
    size_t index = 0;          ///< which Quantity, Switch or Choice; or the handler's own use
    const char* keywords = ""; ///< of a choice, separated by |, in the order of its values
    Answer answer = nullptr;   ///< of queryAnswer
    Action action = nullptr;   ///< of doAction
};

// The handlers that the command table names, by the file that defines them.
#define HANDLER(name) ScpiError name(const Command& command, Request& request)

// commands_settings.cpp
HANDLER(setNumber);
HANDLER(queryNumber);
HANDLER(setSwitch);
HANDLER(querySwitch);
HANDLER(setChoice);
HANDLER(queryChoice);

// commands_common.cpp
HANDLER(queryAnswer);
HANDLER(doAction);
HANDLER(setEventEnable);
HANDLER(setServiceEnable);
HANDLER(triggerFromBus);

// commands_run.cpp
HANDLER(setList);
HANDLER(addToList);
HANDLER(queryList);
HANDLER(queryListPoints);
HANDLER(queryDwellPoints);
HANDLER(moveToPoint);
HANDLER(initiateRun);

// commands_service.cpp
HANDLER(setMassStorage);
HANDLER(addCalibrationPoint);

#undef HANDLER

std::string calibrationPoints(Model& model);
std::string temperature(Model& model);

/// The one parameter that the request carries. Errors: MissingParameter, ParameterNotAllowed.
ScpiError takeOnly(const Request& request, std::string_view& parameter);
/// ParameterNotAllowed when the request carries any.
ScpiError takeNone(const Request& request);

/// Reads a value of the quantity, MIN, MAX or DEF, rounded to its resolution.
/// Errors: those of parseNumber, DataOutOfRange.
ScpiError readQuantity(const Model& model, Quantity quantity, std::string_view text, double& value);
