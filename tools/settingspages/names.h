// The names and numbers that programs know pages and controls by.
#pragma once

#include <string>

#include "list.h"

namespace pages {

inline std::string PageName(Page const& page, Language language) {
    return std::string("IDD_KVARN_") + page.name + (language == swedish ? "_SV" : "_NO");
}

inline int PageNumber(Page const& page, Language language) {
    return (language == swedish ? 20100 : 20200) + page.number;
}

inline std::string ControlName(File file, Field const& field) {
    char const* const prefix = file == File::kvarnbok ? "IDC_KVARNBOK_"
                               : file == File::jb23   ? "IDC_JB23_"
                                                      : "IDC_KLIPPBOK_";
    return std::string(prefix) + field.key;
}

} // namespace pages
