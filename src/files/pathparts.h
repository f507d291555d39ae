// The parts of a path, as it is spelt.
#pragma once

#include <string>
#include <string_view>

namespace kvarn {

struct PathParts {
    std::string folder; // without the last backslash; empty when there is none
    std::string name;
};

// White space around the argument is dropped, then, where it begins with a double quote, every
// double quote at its ends.
PathParts SplitPathArgument(std::string_view argument);

// The path up to its last backslash, without it; empty when there is none.
std::string_view FolderOf(std::string_view path);

// Folder, backslash, name.
std::string PathOf(std::string_view folder, std::string_view name);

// The path with ".tmp" for its last four characters, which are the extension of the files that are
// rewritten through such a one; with ".tmp" after it where it ends so itself.
std::string TemporaryOf(std::string_view path);

// The same path as it is spelt: in any case, with either separator.
bool SamePath(std::string_view a, std::string_view b);

} // namespace kvarn
