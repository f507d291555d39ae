// The settings file that all of them read and write.
#pragma once

#include <string>

#include "contender.h"

// The first 82 are those of a "KVARNBOK.PAR"; with values.
Settings KeyFile(std::size_t count);
// Those of a settings page.
Settings Page();

// A line for each key, with CR LF.
std::string KeyLines(Settings const& settings);

// The same in a section, for those who know files with sections only.
inline constexpr char const* sectionName = "S";
std::string KeyLinesInSection(Settings const& settings);
