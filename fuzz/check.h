// What every fuzz target does when the code under test is wrong.
#pragma once

#include <cstdio>
#include <cstdlib>

// Ends the run, which makes libFuzzer keep the input.
inline void Check(bool holds, char const* rule) {
    if (!holds) {
        std::fprintf(stderr, "Broken: %s\n", rule);
        std::abort();
    }
}
