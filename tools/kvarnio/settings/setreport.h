// What kvarnio set tells when it has written.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "../shared/losses.h"
#include "settingsfile.h"

namespace kvarnio {

struct Change {
    std::string key;
    bool removed;
    std::optional<Entry> was;
    std::optional<Entry> now;
};

// What was written at once, on standard output (as JSON an object for one change, an array for
// several), or would be in a dry run; dropped lines and a change that went to the shared file, on
// standard error.
void Report(Context const& context, SettingsFile const& file, std::vector<Change> const& changes,
            Losses const& losses);

} // namespace kvarnio
