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

/// A row of the command table: a header in SCPI notation (capitals are the short form, brackets
/// hold what may be left out) and what it and its query do.
struct Command {
    std::string pattern;
    Handler set;
    Handler query;
    size_t index = 0;          ///< which Quantity, Switch or Choice; or the handler's own use
    const char* keywords = ""; ///< of a choice, separated by |, in the order of its values
};

/// Finds a command by its upper-case header, in any mix of short and long forms; null when there
/// is none.
const Command* findCommand(const std::string& header);

/// The one parameter that the request carries. Errors: MissingParameter, ParameterNotAllowed.
ScpiError takeOnly(const Request& request, std::string_view& parameter);
/// ParameterNotAllowed when the request carries any.
ScpiError takeNone(const Request& request);
