// What is wrong with the content of each kind of file: lines that the library skips, cuts,
// misreads, or loses when it writes the file. A file that the library wrote from sound values has
// no findings. Not part of the library: the tool alone asks.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "../keyfile.h"
#include "../stenkod.h"
#include "finding.h"

namespace kvarn {

// A key file with these defaults. The first line of a key that is about to be written is none
// that is lost: it takes the new value, or is removed as asked.
std::vector<Finding> CheckKeys(std::string_view content, std::span<KeyDefault const> defaults,
                               std::span<std::string const> writtenKeys = {});

// Only the lines that are written lose what is not read of them.
std::vector<Finding> CheckJb23(std::string_view content, std::span<int const> writtenLines = {});

std::vector<Finding> CheckKodfil(std::string_view content);
std::vector<Finding> CheckMiljkod(std::string_view content);
std::vector<Finding> CheckLinkod(std::string_view content);
std::vector<Finding> CheckMappar(std::string_view content);
std::vector<Finding> CheckOmradesfil(std::string_view content);
// An INI file: what of it no program reads.
std::vector<Finding> CheckIni(std::string_view content);
std::vector<Finding> CheckStamp(std::string_view content);
std::vector<Finding> CheckPoints(std::string_view content);

// With the lists' built-in names.
std::vector<Finding> CheckStenkod(std::string_view content, MaterialNames rock, MaterialNames fill,
                                  bool norwegian);

} // namespace kvarn
