#pragma once

/// How pauses and messages of the program pass, for tests that are not about their length.
struct Pauses {
    double share = 1.0;        ///< of its length that a pause takes
    double messageShare = 1.0; ///< of its time that a message stands in the status line
    int running = 0;           ///< pauses going on, one within the other
    int totalMs = 0;           ///< the lengths of all pauses so far, whatever they really took
};
Pauses& pauses();

/// Waits `pauseMs` milliseconds while events are processed. Anything may have happened in the
/// meantime: check the connection, and the button that started the sequence, again.
///
/// False when the program is being ended: the caller then leaves its sequence.
bool pause(int pauseMs);
