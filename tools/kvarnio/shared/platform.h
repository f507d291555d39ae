// What the tool needs from the host beyond standard C++. Texts are UTF-8; paths of the library are
// in code page 1252.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvarnio {

// The arguments after the program's name.
std::vector<std::string> Arguments(int argc, char** argv);

// Shows what is written to the standard streams as UTF-8, until the program ends.
void ShowUtf8();

void SetEnvironment(char const* name, std::string const& value);

// The code page of the library's texts on this host.
unsigned CodePage();

// A folder as the user typed it, as one that the library takes: without separators at its end.
std::string LibraryFolder(std::string const& typed);

// A file as the user typed it, as a path that the library takes.
std::string LibraryPath(std::string const& typed);

// A file of the tool's own, as the user typed it.
std::filesystem::path UserPath(std::string const& typed);

// The host's path of a path of the library.
std::filesystem::path HostPath(std::string_view path);

} // namespace kvarnio
