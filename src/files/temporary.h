// The files that writers fill beside their targets: their names, and the sweeping of those that
// killed writers left.
#pragma once

#include <string>
#include <string_view>

namespace kvarn {

// NAME.<process>-<number>.tmp beside the target, with another number each time.
std::string TemporaryBeside(std::string_view target);

// Whether a name has that form: it belongs to a writer, and nobody copies it.
bool IsTemporary(std::string_view name);

// Deletes the target's temporary files that no writer uses any more: their process does not live,
// or they are older than a day. One that another program has open stays. A process does this once
// for each target.
void SweepBeside(std::string const& target);

} // namespace kvarn
