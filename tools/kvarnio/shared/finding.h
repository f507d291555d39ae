// What is found wrong with a file, and what of it is lost when the file is written.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "output.h"

namespace kvarnio {

// What becomes of that part of the file when the library rewrites it.
enum class Loss {
    none,   // it is kept
    line,   // it is not read, and gone then
    header, // the same, but this tool puts it back
    blank   // a blank line, gone then and not worth a name
};

// A place in a file and what is to be said of it.
struct Finding {
    std::size_t line; // counted from 1
    std::string what; // in UTF-8
    Loss loss = Loss::none;
    std::string text{}; // what stands there, in code page 1252
};

// "what", or `what: "text"`.
std::string Told(Finding const& finding);

// A row for each, as file:line: what; nothing is said of blank lines.
void PrintFindings(std::string const& shownPath, std::vector<Finding> const& findings);
// The same as objects, appended to an array.
void AppendFindings(Json& json, std::string const& shownPath, std::vector<Finding> const& findings);

// Without what is not worth a name.
bool IsSound(std::vector<Finding> const& findings);

} // namespace kvarnio
