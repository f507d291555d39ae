// Texts that cross the border to a client: words into its buffers, and its own texts.
#pragma once

#include <cstddef>
#include <string_view>

#include "../text/text.h"

namespace kvarn {

// What a caller's buffer holds, with the zero.
constexpr std::size_t langstaOrd = 256;

inline void Lamna(char* buffert, std::string_view ord) {
    CopyText(buffert, langstaOrd, ord);
}

// Null is empty.
inline char const* Text(char const* text) {
    return text != nullptr ? text : "";
}

} // namespace kvarn
