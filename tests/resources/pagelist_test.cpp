// The settings pages as they are made of their list: what holds for all of them, in both languages.
#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "accelerators.h"
#include "layout.h"
#include "list.h"
#include "textwidth.h"

namespace {

using namespace pages;

class PageList : public testing::TestWithParam<Language> {
  protected:
    template <class Do> static void ForEachPage(Do const& act) {
        for (Page const& page : AllPages()) {
            SCOPED_TRACE(page.name);
            act(page, LaidOut(page, GetParam()));
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Language, PageList, testing::Values(swedish, norwegian),
                         [](auto const& language) {
                             return language.param == swedish ? "Swedish" : "Norwegian";
                         });

bool IsLabel(Item const& item) {
    return item.part == Part::label || item.part == Part::check;
}

// The letter after "&"; 0 for a text without one.
char KeyOf(std::string const& text) {
    std::size_t const mark = text.find('&');
    return mark == std::string::npos ? '\0' : static_cast<char>(std::toupper(text[mark + 1]));
}

// A stroke under a letter or a digit, where the user sees it.
bool IsSeen(std::string text) {
    std::size_t const mark = text.find('&');
    text.erase(mark, 1);
    return std::isalnum(static_cast<unsigned char>(text[mark])) != 0 && StrokeFits(text, mark);
}

TEST_P(PageList, EveryFieldHasAnAccessKeyThatNothingElseHas) {
    ForEachPage([](Page const& page, std::vector<Item> const& items) {
        std::map<char, std::string> taken;
        for (char const letter : SheetLetters(GetParam())) {
            taken[letter] = "a button";
        }
        std::ptrdiff_t fields = 0;
        ForEachField(page, [&](Field const&) { ++fields; });
        EXPECT_EQ(std::ranges::count_if(items, IsLabel), fields);
        for (Item const& item : items) {
            if (IsLabel(item)) {
                auto const [other, first] = taken.try_emplace(KeyOf(item.text), item.text);
                EXPECT_TRUE(first) << item.text << " and " << other->second;
                EXPECT_TRUE(KeyOf(item.text) != '\0' && IsSeen(item.text)) << item.text;
            }
        }
    });
}

TEST_P(PageList, NoPageIsEmptyByAQuarter) {
    ForEachPage([](Page const&, std::vector<Item> const& items) {
        int end = 0;
        for (Item const& item : items) {
            end = std::max(end, item.part == Part::group ? item.y + item.height : 0);
        }
        EXPECT_LT(4 * (pageHeight - end), pageHeight);
    });
}

TEST_P(PageList, BoxesAreWideEnoughForWordsBesideCodes) {
    ForEachPage([](Page const&, std::vector<Item> const& items) {
        for (Item const& item : items) {
            if (item.part == Part::combo) {
                for (std::string_view const entry : item.field->entries) {
                    constexpr int arrow = 18;
                    EXPECT_LE(TextWidth(Shown(entry, GetParam())) + arrow, item.width) << entry;
                }
            }
        }
    });
}

// A label without the row's number and what stands behind the quantity.
std::string QuantityOf(Field const& field, Language language) {
    std::string text(field.label[language]);
    if (std::isdigit(static_cast<unsigned char>(text[0])) != 0) {
        text.erase(0, text.find(' ') + 1);
    }
    if (text.starts_with("Rb, ")) {
        text.erase(0, 4);
        text[0] = static_cast<char>(std::toupper(text[0]));
    }
    return text;
}

template <class Do> void ForEachFieldOfAll(Do const& act) {
    for (Page const& page : AllPages()) {
        ForEachField(page, act);
    }
}

TEST_P(PageList, AQuantityHasOneUnit) {
    std::map<std::string, std::string_view> units;
    ForEachFieldOfAll([&](Field const& field) {
        std::string_view const filed = field.unit[GetParam()];
        std::string_view const unit = filed.empty()               ? filed
                                      : field.common.unit.empty() ? filed
                                                                  : field.common.unit;
        if (!unit.empty()) {
            auto const [other, first] = units.try_emplace(QuantityOf(field, GetParam()), unit);
            EXPECT_EQ(unit, other->second) << field.key;
        }
    });
    EXPECT_GT(units.size(), 10U);
}

std::vector<Text> AllTexts() {
    std::vector<Text> texts;
    for (Page const& page : AllPages()) {
        texts.push_back(page.caption);
        for (Group const& group : page.groups) {
            texts.push_back(group.title);
        }
        ForEachField(page, [&](Field const& field) {
            texts.push_back(field.label);
            texts.push_back(field.unit);
        });
    }
    return texts;
}

// A thing has one word in each language: what is told apart in one is told apart in the other.
TEST(PageWords, AreTheSameForTheSameThing) {
    std::map<std::string_view, std::string_view> of[2];
    for (Text const& text : AllTexts()) {
        for (Language const from : {swedish, norwegian}) {
            Language const to = from == swedish ? norwegian : swedish;
            auto const [other, first] = of[from].try_emplace(text[from], text[to]);
            EXPECT_EQ(text[to], other->second) << text[from];
        }
    }
}

std::string_view EndOf(std::string_view key) {
    for (std::string_view const end : {"TEGNING", "SKALA", "STEG", "SEKT", "HOJD", "SCALE"}) {
        if (key.ends_with(end)) {
            return end;
        }
    }
    return key;
}

TEST(PageControls, AreOfOneKindForOneKindOfValue) {
    std::map<std::string_view, Kind> kinds;
    ForEachFieldOfAll([&](Field const& field) {
        auto const [other, first] = kinds.try_emplace(EndOf(field.key), field.kind);
        EXPECT_EQ(field.kind, other->second) << field.key;
        std::set<std::string_view> words;
        for (std::string_view const entry : field.entries) {
            EXPECT_TRUE(words.insert(Shown(entry, swedish).substr(entry.size())).second ||
                        Shown(entry, swedish) == entry)
                << field.key << " has two codes for one thing";
        }
    });
}

} // namespace
