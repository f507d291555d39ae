// Several keys that a client writes at once, and the result of each.
#pragma once

#include <span>
#include <vector>

#include "../formats/keyfile.h"
#include "nyckelvarde.h"

namespace kvarn {

using ClientKeys = std::span<nyckelvarde>;

inline ClientKeys ClientKeysOf(nyckelvarde* keys, int count) {
    return keys != nullptr && count > 0 ? ClientKeys(keys, static_cast<std::size_t>(count))
                                        : ClientKeys();
}

inline KeyChange ChangeOf(nyckelvarde const& key) {
    auto const text = [](char const* t) { return std::string_view(t != nullptr ? t : ""); };
    return {text(key.nyckel), text(key.varde)};
}

inline std::vector<KeyChange> ChangesOf(ClientKeys keys) {
    std::vector<KeyChange> changes;
    changes.reserve(keys.size());
    for (nyckelvarde const& key : keys) {
        changes.push_back(ChangeOf(key));
    }
    return changes;
}

// Gives each key its result, from that of all of them, which it returns.
template <class Fits> int TellEach(ClientKeys keys, int result, Fits fits) {
    constexpr int tooLong = -1;
    constexpr int notWritten = -2; // because of another, or of the file
    for (nyckelvarde& key : keys) {
        key.resultat = !fits(ChangeOf(key)) ? tooLong : result == 0 ? 0 : notWritten;
    }
    return result;
}
inline int TellEach(ClientKeys keys, int result) {
    return TellEach(keys, result, [](KeyChange const& change) { return change.Fits(); });
}

} // namespace kvarn
