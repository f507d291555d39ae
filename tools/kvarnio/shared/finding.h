// How findings are shown.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <formats/checks/finding.h>

#include "failure.h"
#include "output.h"

namespace kvarnio {

using kvarn::Finding;
using kvarn::Loss;
using kvarn::Rule;

// A row for each, as file:line: what [rule]; nothing is said of blank lines.
void PrintFindings(std::string const& shownPath, std::vector<Finding> const& findings);
// The same as objects, appended to an array.
void AppendFindings(Json& json, std::string const& shownPath, std::vector<Finding> const& findings);

// Without what is not worth a name.
bool IsSound(std::vector<Finding> const& findings);

// What is wrong with a file of the library's path, of which one that cannot be read is an instance.
using ContentCheck = std::function<std::vector<Finding>(std::string_view content)>;
std::vector<Finding> FindingsOf(std::string const& path, ContentCheck const& check);

// The exit status that a check ends with.
ExitStatus StatusOf(std::vector<Finding> const& findings);

} // namespace kvarnio
