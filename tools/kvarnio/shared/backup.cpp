#include "backup.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <optional>
#include <system_error>

#include "failure.h"
#include "output.h"
#include "platform.h"

namespace kvarnio {
namespace {

std::filesystem::path Beside(std::filesystem::path path, char const* suffix) {
    return path += suffix;
}

bool WriteToDisk(std::filesystem::path const& path, std::string_view content) {
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    return file.good() && FlushToDisk(path);
}

std::optional<std::string> Read(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    std::string content;
    std::array<char, 65536> part{};
    while (file.read(part.data(), part.size()) || file.gcount() > 0) {
        content.append(part.data(), static_cast<std::size_t>(file.gcount()));
    }
    return file.is_open() && !file.bad() ? std::optional(content) : std::nullopt;
}

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

std::string ContentOf(std::filesystem::path const& path) {
    return Read(path).value_or("");
}

std::string ReadWhole(std::string const& path) {
    auto content = Read(HostPath(path));
    if (!content) {
        throw Failure(Shown(path) + " cannot be read");
    }
    return *std::move(content);
}

bool KeepCopy(std::filesystem::path const& path, std::string_view content) {
    std::filesystem::path const copy = Beside(path, backupSuffix);
    std::filesystem::path const temporary = Beside(copy, ".tmp");
    std::error_code error;
    if (WriteToDisk(temporary, content)) {
        auto const rights = std::filesystem::status(path, error).permissions();
        std::filesystem::permissions(temporary, rights, error);
        std::filesystem::rename(temporary, copy, error);
        if (!error) {
            return true;
        }
    }
    std::filesystem::remove(temporary, error);
    return false;
}

std::string NotWritten(std::string const& path) {
    return Shown(path) + " could not be written: " + WhyNotWritten(HostPath(path));
}

} // namespace kvarnio
