#pragma once

#include <string>

#include <gtest/gtest.h>
#include <neighbours/road/alignment.h>

// Runs what is to throw NotTaken or BadChoice, with a part of its text.
template <class Run> void ExpectRefused(Run run, std::string const& why) {
    try {
        run();
        ADD_FAILURE() << "not refused: " << why;
    } catch (std::runtime_error const& refusal) {
        EXPECT_NE(std::string(refusal.what()).find(why), std::string::npos) << refusal.what();
    }
}
