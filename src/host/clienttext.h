// Turns the library's own texts into those that clients get.
#pragma once

#include <string_view>

#include "host.h"

namespace kvarn {

inline CString ToCString(std::string_view text) {
    return {text.data(), static_cast<int>(text.size())};
}

} // namespace kvarn
