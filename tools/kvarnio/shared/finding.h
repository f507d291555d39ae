// How findings are shown.
#pragma once

#include <string>
#include <vector>

#include <formats/finding.h>

#include "output.h"

namespace kvarnio {

using kvarn::Finding;
using kvarn::Loss;

// "what", or `what: "text"`.
std::string Told(Finding const& finding);

// A row for each, as file:line: what; nothing is said of blank lines.
void PrintFindings(std::string const& shownPath, std::vector<Finding> const& findings);
// The same as objects, appended to an array.
void AppendFindings(Json& json, std::string const& shownPath, std::vector<Finding> const& findings);

// Without what is not worth a name.
bool IsSound(std::vector<Finding> const& findings);

} // namespace kvarnio
