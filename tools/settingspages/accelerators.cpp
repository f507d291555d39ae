#include "accelerators.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "textwidth.h"

namespace pages {

namespace {

bool IsLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9');
}

char Capital(char letter) {
    return static_cast<char>(letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter);
}

bool IsDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

// A text is a row's number, if it has one, and words: "3. Steg:".
std::size_t WordsIn(std::string_view text) {
    return IsDigit(text.front()) ? text.find(' ') + 1 : 0;
}

std::string_view Words(std::string_view text) {
    return text.substr(WordsIn(text));
}

constexpr int leastWish = 7;

// How much a place is wanted, from 0.
int RankOf(std::string_view text, std::size_t place) {
    auto const isOne = [text, place](std::string_view letters) {
        return letters.find(text[place]) != std::string_view::npos;
    };
    std::size_t const words = WordsIn(text);
    if (isOne("OoCc")) {
        return leastWish;
    }
    if (place == words) {
        return 1;
    }
    if (IsDigit(text[place])) {
        return 6;
    }
    if (isOne("gjpqysfilrtvx")) {
        return 5;
    }
    if (place > words && (text[place - 1] == ' ' || text[place - 1] == '-')) {
        return 2;
    }
    return isOne("aeu") ? 4 : 3;
}

// The places for the letter, best first: the beginning, that of another word, a consonant, a vowel,
// a narrow letter or one whose tail meets the stroke, a digit, one that users may take for OK's or
// Cancel's. Letters beyond ASCII are not on every keyboard. Texts of one wording have their rows'
// numbers, as far as these go.
std::vector<std::size_t> Places(std::string_view text, std::string_view reserved, bool byNumber) {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < text.size(); ++place) {
        bool const free = reserved.find(Capital(text[place])) == std::string_view::npos;
        if (IsLetter(text[place]) && free && StrokeFits(text, place)) {
            places.push_back(place);
        }
    }
    std::size_t const number = WordsIn(text) - (byNumber ? 3 : 0); // its last digit
    std::ranges::stable_sort(places, {}, [&](std::size_t place) {
        return byNumber && place == number ? 0 : RankOf(text, place);
    });
    return places;
}

// Gives each text the best place that is left; a text that finds none moves another one on, and so
// forth, so that all have one where that is possible at all.
class Matching {
  public:
    Matching(std::vector<std::string_view> const& texts, std::string_view reserved)
        : m_texts(texts), m_reserved(reserved), m_place(texts.size()) {}

    bool Place(std::size_t text) {
        std::vector<char> tried;
        return Place(text, tried, false) || Place(text, tried, true);
    }
    std::size_t PlaceOf(std::size_t text) const { return m_place[text]; }

  private:
    bool Place(std::size_t text, std::vector<char>& tried, bool move) {
        bool const byNumber = IsDigit(m_texts[text].front()) && IsRepeated(text);
        for (std::size_t const place : Places(m_texts[text], m_reserved, byNumber)) {
            char const letter = Capital(m_texts[text][place]);
            auto const owner = m_owner.find(letter);
            if (owner != m_owner.end() && (!move || std::ranges::count(tried, letter) != 0)) {
                continue;
            }
            tried.push_back(letter);
            if (owner == m_owner.end() || Place(owner->second, tried, move)) {
                m_owner[letter] = text;
                m_place[text] = place;
                return true;
            }
        }
        return false;
    }

    bool IsRepeated(std::size_t text) const {
        return std::ranges::count(m_texts, Words(m_texts[text]), Words) > 1;
    }

    std::vector<std::string_view> const& m_texts;
    std::string_view m_reserved;
    std::vector<std::size_t> m_place;
    std::map<char, std::size_t> m_owner;
};

} // namespace

std::vector<std::string> WithAccelerators(std::vector<std::string_view> const& texts,
                                          Language language) {
    Matching matching(texts, SheetLetters(language));
    std::vector<std::string> marked(texts.begin(), texts.end());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!matching.Place(i)) {
            throw std::runtime_error("no letter is left for \"" + marked[i] + '"');
        }
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        marked[i].insert(matching.PlaceOf(i), 1, '&');
    }
    return marked;
}

} // namespace pages
