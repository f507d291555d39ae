// The table that programs fill and save the settings pages by, against the keys that there are.
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "kvarnfiles/defaults.h"
#include "resources/settingspages.h"

namespace {

using kvarn::SettingsFile;

using Keys = std::vector<std::string>;

Keys KeysOfControls(SettingsFile file) {
    Keys keys;
    for (auto const& control : kvarn::settingsControls) {
        if (kvarn::settingsPages[control.page].file == file) {
            keys.emplace_back(control.key);
        }
    }
    return keys;
}

template <std::size_t N> Keys KeysOf(kvarn::KeyDefault const (&table)[N]) {
    Keys keys;
    for (auto const& row : table) {
        keys.emplace_back(row.nyckel);
    }
    return keys;
}

Keys Sorted(Keys keys) {
    std::sort(keys.begin(), keys.end());
    return keys;
}

TEST(SettingsPages, EveryKeyHasOneControl) {
    EXPECT_EQ(Sorted(KeysOfControls(SettingsFile::kvarnPar)), Sorted(KeysOf(kvarn::kvarnDefaults)));
    EXPECT_EQ(Sorted(KeysOfControls(SettingsFile::stenPar)), Sorted(KeysOf(kvarn::stenDefaults)));
    // In the order of the file's lines.
    EXPECT_EQ(KeysOfControls(SettingsFile::jb23Par), KeysOf(kvarn::jb23Defaults));
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
