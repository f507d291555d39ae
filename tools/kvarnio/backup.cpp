#include "backup.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "platform.h"

namespace kvarnio {
namespace {

std::filesystem::path Beside(std::filesystem::path path, char const* suffix) {
    return path += suffix;
}

bool WriteToDisk(std::filesystem::path const& path, std::string const& content) {
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    return file.good() && FlushToDisk(path);
}

} // namespace

std::string ContentOf(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool KeepCopy(std::filesystem::path const& path, std::string const& content) {
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

} // namespace kvarnio
