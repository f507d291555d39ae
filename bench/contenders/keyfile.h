// The settings file that all of them read and write: as many keys as a "KVARNBOK.PAR" has.
#pragma once

#include <string>
#include <vector>

std::vector<std::string> const& Keys();

// A line for each key, with CR LF.
std::string KeyLines();

// The same in a section, for those who know files with sections only.
inline constexpr char const* sectionName = "S";
std::string KeyLinesInSection();
