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
    if (!std::filesystem::exists(path, error) &&
        std::filesystem::is_directory(std::filesystem::absolute(path, error).parent_path(),
                                      error)) {
        return "no file can be made in its folder";
    }
    errno = 0;
    std::fstream const file(path, std::ios::binary | std::ios::in | std::ios::out);
    return !file.is_open() && errno != 0 ? std::generic_category().message(errno)
                                         : "reading or writing it failed; the disk may be full";
}

} // namespace

void ThrowNotRead(std::string const& path) {
    if (kvarn::InFile(path.c_str()).Missing()) {
        throw Failure("there is no file " + Shown(path));
    }
    std::error_code error;
    bool const isFolder = std::filesystem::is_directory(HostPath(path), error);
    throw IoFailure(Shown(path) + (isFolder ? " is a folder" : " cannot be read"));
}

std::string ReadWhole(std::string const& path) {
    auto content = kvarn::WholeFile(path.c_str());
    if (!content) {
        ThrowNotRead(path);
    }
    return *std::move(content);
}

std::string ReadIfThere(std::string const& path) {
    return path.empty() || kvarn::InFile(path.c_str()).Missing() ? "" : ReadWhole(path);
}

void RequireText(std::string const& path, std::string_view content) {
    if (content.find('\0') != std::string_view::npos) {
        throw Failure("nothing was written: " + Shown(path) +
                      " holds zero bytes, so that it is no text in code page 1252; kvarnio check " +
                      "names the lines");
    }
}

bool KeepCopy(std::string const& path) {
    return kvarn::KeepCopy(path.c_str(), (path + backupSuffix).c_str());
}

std::string NotWritten(std::string const& path) {
    return Shown(path) + " could not be written: " + WhyNotWritten(HostPath(path));
}

} // namespace kvarnio
