#pragma once

// Both set a number and read it back: sent by the front panel, and when a run gives the output back
// to it.
constexpr char frequencyFormat[] = "FREQ %lf Hz;FREQ?";
constexpr char powerFormat[] = "POW %lf;POW?";
