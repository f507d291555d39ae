// Which copy of a settings or code file programs take: the project's own, else the one in the CFG
// folder, else the one in the main folder.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "context.h"

namespace kvarnio {

struct Copy {
    char const* place; // "project", "CFG", "main"
    std::string path;  // of the library
};

// The places in the order in which they are looked into, whether there is a file or not. Without a
// project there are two.
std::vector<Copy> PlacesOf(Context const& context, std::string const& name);

// The first that exists.
std::optional<Copy> InForce(Context const& context, std::string const& name);

// What to tell where there is none to read or write: the folders, one on each line.
std::string Folders(Context const& context);

bool Exists(std::string const& path);
bool IsFolder(std::string const& path);

} // namespace kvarnio
