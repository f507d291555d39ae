#include <fcntl.h>
#include <optional>
#include <string>

#include "../filerewrite.h"
#include "files.h"
#include "hostfile.h"
#include "paths.h"
#include "wholefile.h"

BOOL CopyFileA(LPCSTR from, LPCSTR to, BOOL failIfExists) {
    if (failIfExists != FALSE && GetFileAttributesA(to) != INVALID_FILE_ATTRIBUTES) {
        SetLastError(ERROR_FILE_EXISTS);
        return FALSE;
    }
    struct stat status {};
    std::optional<std::string> const content = kvarn::WholeFile(from);
    if (!content || !kvarn::FileStatus(from, status)) {
        return FALSE;
    }
    if (kvarn::RewriteFile(to, *content) != kvarn::Rewritten::done) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    timespec const times[] = {status.st_atim, status.st_mtim};
    utimensat(AT_FDCWD, kvarn::HostPath(to).c_str(), times, 0);
    return TRUE;
}
