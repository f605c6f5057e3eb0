#pragma once

/// How the pauses of the program pass, for tests that are not about their length.
struct Pauses {
    double share = 1.0; ///< of its length that a pause takes
    int totalMs = 0;    ///< the lengths of all pauses so far, whatever they really took
};
Pauses& pauses();

/// Waits `pauseMs` milliseconds while events go on being processed. Anything may have happened
/// meanwhile: look at the connection, and at the button that started the sequence, again.
///
/// False when the program is being ended: whoever paused leaves its sequence.
bool pause(int pauseMs);
