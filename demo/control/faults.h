#pragma once

#include "demo/instrument/instrument.h"
#include "visa_library/bus.h"

#include <map>
#include <optional>

/// A fault at one I/O call.
struct Fault {
    enum class Kind { Status, Vanish, Reply, Endless };

    unsigned call = 0; ///< how many I/O calls are still to come, this one included
    Kind kind = Kind::Status;
    ViStatus status = VI_SUCCESS;
    bool isSlow = false; ///< wait for the session's time-out first
    std::string reply;   ///< exact bytes in place of the instrument's
};

/// The faults that a test has ordered, and when. It only holds them; the calls apply them.
struct Faults {
    /// Counts one I/O call down and takes the fault that is due at it.
    std::optional<Fault> next();

    std::vector<Fault> pending;
    ReplyOverrides replies;
    std::map<ViAttr, AttributeReply> attributes; ///< of find lists
    unsigned latencyUs = 0;                      ///< added to every I/O call
    bool waitsForTimeouts = true; ///< false: a reply that will not come times out at once
};
