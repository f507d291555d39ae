#pragma once

#include <string>

#include <gtest/gtest.h>
#include <neighbours/road/alignment.h>

// The text with which it throws NotTaken or BadChoice.
template <class Run> std::string RefusalOf(Run run) {
    try {
        run();
    } catch (kvarnio::NotTaken const& refusal) {
        return refusal.what();
    } catch (kvarnio::BadChoice const& refusal) {
        return refusal.what();
    }
    return "not refused";
}

// Runs what is to be refused, with a part of its text.
template <class Run> void ExpectRefused(Run run, std::string const& why) {
    std::string const refusal = RefusalOf(run);
    EXPECT_NE(refusal.find(why), std::string::npos) << refusal;
}
