// Texts on their way to clients, who get them as the framework's strings.
#pragma once

#include <string>
#include <string_view>

#include "host.h"

namespace kvarn {

// Up to the text's first zero.
inline CString ToCString(std::string_view text) {
    return std::string(text).c_str();
}

} // namespace kvarn
