// The list of further folders of a project: one a line, relative to the project's folder.
#pragma once

#include <string_view>

#include "../text/lines.h"

namespace kvarn {

// The next folder; empty lines are passed over. False at the end.
inline bool NextMapp(LineReader& lines, std::string_view& folder) {
    bool read = lines.ReadLine(folder);
    while (read && folder.empty()) {
        read = lines.ReadLine(folder);
    }
    return read;
}

} // namespace kvarn
