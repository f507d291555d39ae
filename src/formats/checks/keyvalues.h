// What programs can make of a key's value, told by the key's built-in default: a number is read
// where the default is one, and a word of a few where it is JA or NEJ.
#pragma once

#include <span>
#include <string_view>

#include "../keyfile.h"
#include "linechecker.h"

namespace kvarn {

// What is wrong with a value; nothing for a key that has no default.
Fault ValueFault(std::span<KeyDefault const> defaults, std::string_view key,
                 std::string_view value);

bool IsKnownKey(std::span<KeyDefault const> defaults, std::string_view key);
// The known key that an unknown one was probably meant to be; empty where none is like it.
std::string_view NearestKey(std::span<KeyDefault const> defaults, std::string_view key);

} // namespace kvarn
