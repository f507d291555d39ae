// Text routines that every class shares: the Nordic letters, comparison without regard to case,
// trimming, and paths. Text is in code page 1252.
#pragma once

#include <string>
#include <string_view>

#include "../compat/calls.h"

// Capitals for a to z and for å, ä, ö, each of these three both in code page 1252 and in the DOS
// code page 437; in place. Every other byte stays.
void ToUpperNordic(char* text);

// Nordic letters of the DOS code page to code page 1252, in place. 237 becomes Ø, as it always has
// (code page 437 has no Ø of its own). Every other byte stays.
void OemToAnsiNordic(char* text);
void OemToAnsiNordic(CString& text);

// Splits a quoted or unquoted path argument at its last backslash: see SplitPathArgument. The
// folder and the name are written where the pointers are not null, each at most 255 bytes and the
// zero. Returns 0.
int SplitPath(char const* argument, char* folder, char* name);

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

// Without the white space (9 to 13 and 32) at both ends.
std::string_view Trimmed(std::string_view text);
// Without that at its end alone.
std::string_view TrimmedRight(std::string_view text);

// Equal when the letters of code page 1252 are folded.
bool SameText(std::string_view a, std::string_view b);

// The same path as it is spelt: in any case, with either separator.
bool SamePath(std::string_view a, std::string_view b);

// The order of two texts in the capitals of ToUpperNordic, by their bytes: below, at or above 0.
int CompareUpperNordic(std::string_view a, std::string_view b);

// Copies a text into a buffer of `size` bytes, cut to fit, with a zero at its end.
void CopyText(char* buffer, std::size_t size, std::string_view text);

// The text of a field that clients fill as well, with or without a zero at its end.
template <std::size_t N> std::string_view FieldText(char const (&field)[N]) {
    std::string_view const all(field, N - 1);
    return all.substr(0, all.find('\0'));
}

bool FileExists(char const* path); // a folder too

// Makes a folder, whose parent must exist. True also for one that is there, or that another program
// makes at the same time.
bool MakeFolder(char const* path);

} // namespace kvarn
