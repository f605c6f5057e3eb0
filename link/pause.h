#pragma once

/// Waits `pauseMs` milliseconds while events go on being processed. Anything may have happened
/// meanwhile: look at the connection, and at the button that started the sequence, again.
///
/// False when the program is being ended: whoever paused leaves its sequence.
bool pause(int pauseMs);
