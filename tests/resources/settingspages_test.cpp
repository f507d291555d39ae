// The table that programs fill and save the settings pages by, against the keys that there are.
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "kvarnfiles/defaults.h"
#include "resources/settingspages.h"

namespace {

using kvarn::SettingsFile;

std::map<std::string, int> Controls(SettingsFile file) {
    std::map<std::string, int> keys;
    for (auto const& control : kvarn::settingsControls) {
        if (kvarn::settingsPages[control.page].file == file) {
            ++keys[control.key];
        }
    }
    return keys;
}

template <std::size_t N> std::map<std::string, int> Once(kvarn::KeyDefault const (&table)[N]) {
    std::map<std::string, int> keys;
    for (auto const& row : table) {
        keys[row.nyckel] = 1;
    }
    return keys;
}

TEST(SettingsPages, EveryKeyHasOneControl) {
    EXPECT_EQ(Controls(SettingsFile::kvarnPar), Once(kvarn::kvarnDefaults));
    EXPECT_EQ(Controls(SettingsFile::jb23Par), Once(kvarn::jb23Defaults));
    EXPECT_EQ(Controls(SettingsFile::stenPar), Once(kvarn::stenDefaults));
}

TEST(SettingsPages, TheScalesOfJb23ComeInTheOrderOfTheirLines) {
    auto const* row = kvarn::jb23Defaults;
    for (auto const& control : kvarn::settingsControls) {
        if (kvarn::settingsPages[control.page].file == SettingsFile::jb23Par) {
            EXPECT_STREQ(control.key, row++->nyckel);
        }
    }
}

TEST(SettingsPages, NoNumberStandsForTwoThings) {
    std::set<int> numbers;
    for (auto const& page : kvarn::settingsPages) {
        EXPECT_TRUE(numbers.insert(page.swedish).second) << page.swedish;
        EXPECT_TRUE(numbers.insert(page.norwegian).second) << page.norwegian;
    }
    for (auto const& control : kvarn::settingsControls) {
        EXPECT_TRUE(numbers.insert(control.control).second) << control.control;
    }
}

} // namespace
