#include "datafile.h"

#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../files/textfil.h"

namespace kvarn {

bool ReadDataFile(char const* path, std::string& text, CString& notRead) {
    TextReader file(path);
    bool const read = file.IsOpen() && file.ReadRest(text);
    notRead = read || file.Missing() ? "" : path;
    return read;
}

Rewritten WriteDataFile(char const* path, std::string_view text, CString const& notRead) {
    return SamePath(path, notRead.GetString()) && FileExists(path) ? Rewritten::cannotOpen
                                                                   : RewriteFile(path, text);
}

} // namespace kvarn
