// Texts that cross the border to a client: words into its buffers, and its own texts.
#pragma once

#include <string_view>

#include "../formats/kodtexts.h"
#include "../text/text.h"

namespace kvarn {

// Into a caller's buffer, cut where it is full.
inline void PutText(char* buffer, std::string_view text) {
    CopyText(buffer, longestKodtext + 1, text);
}

// Null is empty.
inline char const* OrEmpty(char const* text) {
    return text != nullptr ? text : "";
}

} // namespace kvarn
