#include "datafil.h"

#include "../files/existence.h"
#include "../files/pathparts.h"
#include "../files/textfil.h"

namespace kvarn {

bool LasDatafil(char const* path, std::string& text, CString& ejLast) {
    TextReader fil(path);
    bool const last = fil.IsOpen() && fil.ReadRest(text);
    ejLast = last || fil.Missing() ? "" : path;
    return last;
}

Rewritten SkrivDatafil(char const* path, std::string_view text, CString const& ejLast) {
    return SamePath(path, ejLast.GetString()) && FileExists(path) ? Rewritten::cannotOpen
                                                                  : RewriteFile(path, text);
}

} // namespace kvarn
