// What is wrong with the content of each kind of file: lines that the library skips, cuts,
// misreads, or loses when it writes the file. A file that the library wrote from sound values has
// no findings.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include <kvarnfiles/standardvarden.h>
#include <kvarnprog.h>

#include "../shared/finding.h"

namespace kvarnio {

// What a line of a key file that is kept may hold. The library would write one character more into
// a value, and lose the line at the next reading.
inline constexpr std::size_t longestKey = sizeof(partype::nyckel) - 1;
inline constexpr std::size_t longestValue = 258;

// A key file with these defaults. The first line of the key that is about to be written is none
// that is lost: it takes the new value, or is removed as asked.
std::vector<Finding> CheckKeys(std::string_view content,
                               std::span<kvarn::Standardvarde const> defaults,
                               std::string_view writtenKey = {});

// Only the line that is written loses what is not read of it; 0 for none.
std::vector<Finding> CheckJb23(std::string_view content, std::size_t writtenLine = 0);

std::vector<Finding> CheckKodfil(std::string_view content);
std::vector<Finding> CheckMiljkod(std::string_view content);
std::vector<Finding> CheckLinkod(std::string_view content);
std::vector<Finding> CheckStamp(std::string_view content);
std::vector<Finding> CheckStenkod(std::string_view content, bool norwegian);
std::vector<Finding> CheckPoints(std::string_view content);

} // namespace kvarnio
