#include "pathparts.h"

#include <algorithm>

#include "../text/codepage.h"
#include "../text/text.h"

namespace kvarn {

PathParts SplitPathArgument(std::string_view argument) {
    std::string_view path = Trimmed(argument);
    if (path.starts_with('"')) {
        path = Trimmed(path, "\"");
    }
    std::string_view const folder = FolderOf(path);
    bool const split = path.find('\\') != std::string_view::npos;
    return {std::string(folder), std::string(split ? path.substr(folder.size() + 1) : path)};
}

std::string_view FolderOf(std::string_view path) {
    std::size_t const last = path.rfind('\\');
    return path.substr(0, last == std::string_view::npos ? 0 : last);
}

std::string PathOf(std::string_view folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    return path.append(folder).append("\\").append(name);
}

std::string TemporaryOf(std::string_view path) {
    constexpr std::string_view temporary = ".tmp";
    std::size_t const stem = std::max(path.size(), temporary.size()) - temporary.size();
    bool const itself = SameText(path.substr(stem), temporary);
    return std::string(path.substr(0, itself ? path.size() : stem)).append(temporary);
}

bool SamePath(std::string_view a, std::string_view b) {
    auto const plain = [](char c) { return c == '/' ? '\\' : Lower1252(c); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return plain(x) == plain(y); });
}

} // namespace kvarn
