// The parts of a path, as it is spelt.
#pragma once

#include <string>
#include <string_view>

namespace kvarn {

struct PathParts {
    std::string folder; // up to the last backslash, without it; empty without a backslash
    std::string name;
};

// Drops white space around the argument; then, if it begins with a double quote, every double quote
// at both ends.
PathParts SplitPathArgument(std::string_view argument);

// The path up to its last backslash, without it; empty without a backslash.
std::string_view FolderOf(std::string_view path);

// Folder, backslash, name.
std::string PathOf(std::string_view folder, std::string_view name);

// The temporary file of a file with an extension of three letters: ".tmp" replaces the last four
// characters. A path that ends in ".tmp" itself gets another ".tmp".
std::string TemporaryOf(std::string_view path);

// Whether two spellings are the same path, regardless of case and with either separator.
bool SamePath(std::string_view a, std::string_view b);

} // namespace kvarn
