#include "profile.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "../filerewrite.h"
#include "../wholefile.h"
#include "files.h"
#include "initext.h"
#include "paths.h"

namespace {

constexpr char const* windowsFolder = "C:\\Windows";

bool IsBare(std::string_view path) {
    return path.find_first_of("\\/:") == std::string_view::npos;
}

// As Windows looks for the file: a bare name lies in its own folder.
std::string FullPath(LPCSTR path) {
    std::string const name = path != nullptr ? path : "WIN.INI";
    return IsBare(name) ? std::string(windowsFolder) + "\\" + name : name;
}

} // namespace

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR standard, LPSTR buffer,
                               DWORD size, LPCSTR path) {
    if (size == 0) {
        return 0;
    }
    std::string_view value = standard != nullptr ? standard : "";
    std::string const ini = kvarn::WholeFile(FullPath(path).c_str()).value_or("");
    if (section != nullptr && key != nullptr) {
        value = kvarn::IniValue(ini, section, key).value_or(value);
    }
    std::size_t const length = std::min<std::size_t>(value.size(), size - 1);
    value.copy(buffer, length);
    buffer[length] = '\0';
    return static_cast<DWORD>(length);
}

BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR path) {
    if (section == nullptr || key == nullptr) {
        return FALSE; // removing whole sections is not offered
    }
    std::string const target = FullPath(path);
    bool const exists = GetFileAttributesA(target.c_str()) != INVALID_FILE_ATTRIBUTES;
    auto const old = kvarn::WholeFile(target.c_str());
    if (exists && !old) {
        return FALSE; // what cannot be read is not replaced
    }
    std::string const text = kvarn::WithIniValue(
        old.value_or(""), section, key,
        value != nullptr ? std::optional<std::string_view>(value) : std::nullopt);
    if (text == old.value_or("")) {
        return TRUE;
    }
    if (IsBare(path != nullptr ? path : "")) {
        std::error_code unwritable; // the write tells
        std::filesystem::create_directories(kvarn::HostPath(windowsFolder), unwritable);
    }
    return kvarn::RewriteFile(target.c_str(), text) == kvarn::Rewritten::done ? TRUE : FALSE;
}
