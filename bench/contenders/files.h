// Whole files by system calls, for the peers and to make their files.
#pragma once

#include <string>

#include "contender.h"

// False when a call failed.
bool ReadWhole(std::string const& path, std::string& content);
bool Save(std::string const& path, std::string const& content, Saving saving);
// A file that was written and flushed takes the other's place; the folder is flushed.
bool Replace(std::string const& beside, std::string const& path);
