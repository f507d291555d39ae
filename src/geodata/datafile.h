// A data file that is read whole into an object and written back from it.
#pragma once

#include <string>
#include <string_view>

#include "../files/filerewrite.h"
#include "../host/host.h"

namespace kvarn {

// Appends the whole content. Returns false when the file cannot be opened or not be read to its
// end; notRead is then its path if it exists, and otherwise empty.
bool ReadDataFile(char const* path, std::string& text, CString& notRead);

// Rewrites the file. The one that could not be read is not overwritten while it is there: it counts
// as one that cannot be opened.
Rewritten WriteDataFile(char const* path, std::string_view text, CString const& notRead);

} // namespace kvarn
