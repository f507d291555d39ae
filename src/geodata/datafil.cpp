#include "datafil.h"

#include <algorithm>

#include "../core/text.h"
#include "../core/textfil.h"

namespace kvarn {
namespace {

// The same path, with either separator.
bool ArSamma(char const* path, CString const& annan) {
    auto const medSnedstreck = [](std::string text) {
        std::replace(text.begin(), text.end(), '/', '\\');
        return text;
    };
    return SameText(medSnedstreck(path), medSnedstreck(annan.GetString()));
}

} // namespace

bool LasDatafil(char const* path, std::string& text, CString& ejLast) {
    TextReader fil(path);
    bool const last = fil.IsOpen() && fil.ReadRest(text);
    ejLast = last || fil.Missing() ? "" : path;
    return last;
}

Rewritten SkrivDatafil(char const* path, std::string_view text, CString const& ejLast) {
    return ArSamma(path, ejLast) && FileExists(path) ? Rewritten::cannotOpen
                                                     : RewriteFile(path, text);
}

} // namespace kvarn
