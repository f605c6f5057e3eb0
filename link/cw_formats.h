#pragma once

// Both set a number and ask for it back: sent by the front panel, and by whoever gives it the
// output back.
constexpr char frequencyFormat[] = "FREQ %lf Hz;FREQ?";
constexpr char powerFormat[] = "POW %lf;POW?";
