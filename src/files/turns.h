// Waiting for another program that holds a file.
#pragma once

#include "../compat/calls.h"

namespace kvarn {

// Others hold a file for some milliseconds: a writer of a settings file, or a virus scanner. After
// half a second their program hangs or was killed, and the user is waiting.
constexpr DWORD turnPause = 20; // milliseconds
constexpr int turnAttempts = 25;

// Makes an attempt until it succeeds, or fails with an error that does not pass with time.
template <class Attempt, class Passes> bool InTurn(int attempts, Attempt attempt, Passes passes) {
    bool done = attempt();
    for (int i = 1; i < attempts && !done && passes(GetLastError()); ++i) {
        Sleep(turnPause);
        done = attempt();
    }
    return done;
}

} // namespace kvarn
