// What kvarnio set tells when it has written.
#pragma once

#include <optional>
#include <string>

#include "../shared/losses.h"
#include "settingsfile.h"

namespace kvarnio {

struct Change {
    std::string key;
    bool removed;
    std::optional<Entry> was;
    std::optional<Entry> now;
    Losses losses; // if any, the old file was kept
};

// What was written, on standard output; dropped lines and a change that went to the shared file, on
// standard error.
void Report(Context const& context, SettingsFile const& file, Change const& change);

} // namespace kvarnio
