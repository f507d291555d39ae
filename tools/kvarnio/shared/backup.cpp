#include "backup.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include <files/filecopy.h>
#include <files/infile.h>

#include "failure.h"
#include "output.h"
#include "platform.h"

namespace kvarnio {
namespace {

std::string WhyNotWritten(std::filesystem::path const& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        return "it is a folder";
    }
    errno = 0;
    std::fstream const file(path, std::ios::binary | std::ios::in | std::ios::out);
    return !file.is_open() && errno != 0 ? std::generic_category().message(errno)
                                         : "reading or writing it failed; the disk may be full";
}

} // namespace

std::string ReadWhole(std::string const& path) {
    auto content = kvarn::WholeFile(path.c_str());
    if (!content) {
        throw Failure(Shown(path) + " cannot be read");
    }
    return *std::move(content);
}

std::string ReadIfThere(std::string const& path) {
    return path.empty() || kvarn::InFile(path.c_str()).Missing() ? "" : ReadWhole(path);
}

bool KeepCopy(std::string const& path) {
    return kvarn::KeepCopy(path.c_str(), (path + backupSuffix).c_str());
}

std::string NotWritten(std::string const& path) {
    return Shown(path) + " could not be written: " + WhyNotWritten(HostPath(path));
}

} // namespace kvarnio
