// The dated folder in which a project's removed files are kept.
#pragma once

#include <string>
#include <vector>

namespace kvarnio {

// Copies the files, of one folder, into a new folder beside them, all or none, and returns that
// folder. Paths are the library's. Throws IoFailure.
std::string KeepRemoved(std::vector<std::string> const& paths);

// The last of these folders in a folder; empty without one.
std::string LastRemoved(std::string const& folder);

} // namespace kvarnio
