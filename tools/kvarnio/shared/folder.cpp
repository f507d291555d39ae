#include "folder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <text/codepage.h>

#include "failure.h"
#include "output.h"
#include "platform.h"

namespace kvarnio {

std::vector<std::string> NamesIn(std::string const& folder) {
    std::error_code error;
    std::filesystem::directory_iterator entries(HostPath(folder + '\\'), error);
    std::vector<std::string> names;
    while (!error && entries != std::filesystem::directory_iterator()) {
        if (auto const name = LibraryName(entries->path().filename())) {
            names.push_back(*name);
        }
        entries.increment(error);
    }
    if (error && error != std::errc::no_such_file_or_directory) {
        throw IoFailure(Shown(folder) + " cannot be listed");
    }
    std::sort(names.begin(), names.end(), [](std::string const& a, std::string const& b) {
        return kvarn::CompareNoCase1252(a, b) < 0;
    });
    return names;
}

bool HasExtension(std::string_view name, std::string_view extension) {
    return name.size() > extension.size() &&
           kvarn::CompareNoCase1252(name.substr(name.size() - extension.size()), extension) == 0;
}

} // namespace kvarnio
