// A data file that is read whole into an object and written back from it.
#pragma once

#include <string>
#include <string_view>

#include "../files/filerewrite.h"
#include "../host/host.h"

namespace kvarn {

// The whole content. False when the file cannot be opened or not be read to its end; ejLast is then
// its path where it exists, otherwise empty.
bool LasDatafil(char const* path, std::string& text, CString& ejLast);

// Rewrites the file; but not the one that could not be read, which cannot be opened while it is
// there.
Rewritten SkrivDatafil(char const* path, std::string_view text, CString const& ejLast);

} // namespace kvarn
