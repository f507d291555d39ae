#include "accelerators.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace pages {

namespace {

bool IsLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9');
}

char Capital(char letter) {
    return static_cast<char>(letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter);
}

// The places for the letter, best first: at the beginning, at that of another word, on a
// consonant, on a vowel; then on one whose tail meets the stroke or that is too narrow for it, and
// on a digit last. Letters beyond ASCII are not on every keyboard.
std::vector<std::size_t> Places(std::string_view text) {
    auto const rank = [text](std::size_t place) {
        if (text[place] >= '0' && text[place] <= '9') {
            return 5;
        }
        bool const begins = place == 0 || text[place - 1] == ' ' || text[place - 1] == '-';
        if (begins) {
            return place == 0 ? 0 : 1;
        }
        if (std::string_view("gjpqyil").find(text[place]) != std::string_view::npos) {
            return 4;
        }
        return std::string_view("aeou").find(text[place]) == std::string_view::npos ? 2 : 3;
    };
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (IsLetter(text[place])) {
            places.push_back(place);
        }
    }
    std::ranges::stable_sort(places, {}, rank);
    return places;
}

// Gives each text the best place that is left; a text that finds none moves another one on, and so
// forth, so that all have one where that is possible at all.
class Matching {
  public:
    explicit Matching(std::vector<std::string_view> const& texts)
        : m_texts(texts), m_place(texts.size()) {}

    bool Place(std::size_t text) {
        std::vector<char> tried;
        return Place(text, tried, false) || Place(text, tried, true);
    }
    std::size_t PlaceOf(std::size_t text) const { return m_place[text]; }

  private:
    bool Place(std::size_t text, std::vector<char>& tried, bool move) {
        for (std::size_t const place : Places(m_texts[text])) {
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

    std::vector<std::string_view> const& m_texts;
    std::vector<std::size_t> m_place;
    std::map<char, std::size_t> m_owner;
};

} // namespace

std::vector<std::string> WithAccelerators(std::vector<std::string_view> const& texts) {
    Matching matching(texts);
    std::vector<std::string> marked(texts.begin(), texts.end());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (std::ranges::count(texts, texts[i]) > 1) {
            continue;
        }
        if (!matching.Place(i)) {
            throw std::runtime_error("no letter is left for \"" + marked[i] + '"');
        }
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (std::ranges::count(texts, texts[i]) == 1) {
            marked[i].insert(matching.PlaceOf(i), 1, '&');
        }
    }
    return marked;
}

} // namespace pages
