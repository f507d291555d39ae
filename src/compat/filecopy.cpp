#include "filecopy.h"

#include "filerewrite.h"
#include "host.h"
#include "wholefile.h"

namespace kvarn {
namespace {

// As good as it goes: the content is there.
void SetTime(char const* path, FILETIME const& written) {
    HANDLE const file =
        CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        SetFileTime(file, nullptr, nullptr, &written);
        CloseHandle(file);
    }
}

} // namespace

bool CopyWhole(char const* from, char const* to, bool replace) {
    if (!replace && GetFileAttributesA(to) != INVALID_FILE_ATTRIBUTES) {
        return false;
    }
    WIN32_FILE_ATTRIBUTE_DATA source{};
    std::optional<std::string> const content = WholeFile(from);
    if (!content || GetFileAttributesExA(from, GetFileExInfoStandard, &source) == FALSE ||
        RewriteFile(to, *content) != Rewritten::done) {
        return false;
    }
    SetTime(to, source.ftLastWriteTime);
    return true;
}

} // namespace kvarn
