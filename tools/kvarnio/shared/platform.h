// What the tool needs from the host beyond standard C++. Texts are UTF-8; paths of the library are
// in code page 1252.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvarnio {

// The arguments after the program's name.
std::vector<std::string> Arguments(int argc, char** argv);

// Shows what is written to the standard streams as UTF-8, until the program ends.
void ShowUtf8();

// Standard error is a terminal, and standard output is none.
bool ErrorsAloneAreOnTerminal();

// Somebody is at a terminal, to be asked on standard error and to answer on standard input.
bool CanAsk();

// The bytes of standard input where that is a file, otherwise 0.
std::uintmax_t SizeOfInput();

// Whether a file is what standard input reads.
bool IsStandardInput(std::filesystem::path const& file);

// Standard input and output are bytes from now on: line ends stay what they are.
void UseStreamsAsTheyAre();

void SetEnvironment(char const* name, std::string const& value);

// The code page of the library's texts on this host.
unsigned CodePage();

// A folder as the user typed it, as one that the library takes: without separators at its end.
std::string LibraryFolder(std::string const& typed);

// A file as the user typed it, as a path that the library takes.
std::string LibraryPath(std::string const& typed);

// A name that the host has listed; nothing for one that the library's code page cannot spell.
std::optional<std::string> LibraryName(std::filesystem::path const& name);

// A file of the tool's own, as the user typed it.
std::filesystem::path UserPath(std::string const& typed);

// The text file that holds the registry, as a path of the library; empty where the host has a
// registry of its own, or its path has a letter that the code page lacks.
std::string RegistryStore();

// The lines of such a file that are not understood, counted from 1.
std::vector<std::size_t> BadRegistryLines(std::string_view content);

// The host's path of a path of the library.
std::filesystem::path HostPath(std::string_view path);

} // namespace kvarnio
