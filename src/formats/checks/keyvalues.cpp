#include "keyvalues.h"

#include <algorithm>
#include <string>
#include <vector>

#include "../../text/codepage.h"
#include "../../text/scan.h"
#include "../../text/shown.h"
#include "../../text/text.h"

namespace kvarn {
namespace {

constexpr std::string_view yesAndNo[] = {"JA", "NEJ"};

KeyDefault const* DefaultOf(std::span<KeyDefault const> defaults, std::string_view key) {
    auto const found = std::find_if(defaults.begin(), defaults.end(), [&](KeyDefault const& row) {
        return SameText(row.nyckel, key);
    });
    return found != defaults.end() ? &*found : nullptr;
}

bool IsOneOf(std::string_view value, std::span<std::string_view const> words) {
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return SameText(word, value); });
}

// Lengths on paper: programs divide by them.
bool IsLength(std::string_view key) {
    constexpr std::string_view endings[] = {"SKALA", "STEG", "SCALE", "HOJD", "TEGNING"};
    return std::any_of(std::begin(endings), std::end(endings), [&](std::string_view ending) {
        return key.size() >= ending.size() &&
               SameText(key.substr(key.size() - ending.size()), ending);
    });
}

// A scale of 0 or less draws nothing, but for a key that has such a default: it means the largest
// value that there is, as MAX does.
Fault NumberValueFault(KeyDefault const& row, std::string_view value) {
    if (SameText(value, "MAX")) {
        return {};
    }
    if (Fault fault = NumberFault(value)) {
        return fault;
    }
    double number = 0;
    double standard = 0;
    Scan(value, number);
    Scan(row.varde, standard);
    bool const tooSmall = IsLength(row.nyckel) ? !(number > 0) : standard > 0 && !(number >= 0);
    return tooSmall && number != standard
               ? Fault{Rule::outOfRange, OneLine(value) + " is below what the key can be"}
               : Fault{};
}

Fault ChoiceFault(std::string_view value) {
    double number = 0;
    bool const isWrong = !IsOneOf(value, yesAndNo) && Scan(value, number) == 1;
    return isWrong ? Fault{Rule::notAChoice, '"' + OneLine(value) + "\" where JA or NEJ belongs"}
                   : Fault{};
}

// Letters to change, add or leave out to make one text of the other.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        row[j] = j;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            std::size_t const changed = diagonal + (Upper1252(a[i]) == Upper1252(b[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

} // namespace

Fault ValueFault(std::span<KeyDefault const> defaults, std::string_view key,
                 std::string_view value) {
    KeyDefault const* const row = DefaultOf(defaults, key);
    if (row == nullptr) {
        return {};
    }
    value = Trimmed(value);
    if (IsOneOf(row->varde, yesAndNo)) {
        return ChoiceFault(value);
    }
    return NumberFault(row->varde) ? Fault{} : NumberValueFault(*row, value);
}

bool IsKnownKey(std::span<KeyDefault const> defaults, std::string_view key) {
    return DefaultOf(defaults, key) != nullptr;
}

std::string_view NearestKey(std::span<KeyDefault const> defaults, std::string_view key) {
    std::size_t nearest = key.size() / 3 + 1; // more letters make it another key
    std::string_view found;
    for (KeyDefault const& row : defaults) {
        std::size_t const distance = Distance(key, row.nyckel);
        if (distance < nearest) {
            nearest = distance;
            found = row.nyckel;
        }
    }
    return found;
}

} // namespace kvarn
