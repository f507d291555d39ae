// What the subcommands' arguments may hold. In: UTF-8, as typed; out: code page 1252. All of them
// throw UsageError, with the reason.
#pragma once

#include <string>

namespace kvarnio {

// Any text that the code page can spell; `what` begins the reason, here and below.
std::string In1252(std::string const& what, std::string const& typed);

// A text on one line.
std::string Text(char const* what, std::string const& typed);

std::string FileName(std::string const& typed);

// A key that a settings file can hold: no "=", no control characters.
std::string Key(std::string const& typed);

// A value that one line of a settings file can hold; it may be empty.
std::string Value(std::string const& typed);

int WholeNumber(char const* what, std::string const& typed);
double Number(char const* what, std::string const& typed);

// Between the fields of a table: a character, or "tab".
char Separator(std::string const& typed);

} // namespace kvarnio
