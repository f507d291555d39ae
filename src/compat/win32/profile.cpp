#include "profile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "files.h"
#include "initext.h"
#include "process.h"

namespace {

// As Windows looks for the file: a bare name lies in its own folder.
std::string FullPath(LPCSTR path) {
    std::string_view const name = path != nullptr ? path : "WIN.INI";
    bool const bare = name.find_first_of("\\/:") == std::string_view::npos;
    return (bare ? "C:\\Windows\\" : "") + std::string(name);
}

// Nothing when the file cannot be opened or read to its end.
std::optional<std::string> Contents(std::string const& path) {
    HANDLE const file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    std::string text;
    std::array<char, 4096> buffer{};
    DWORD count = 0;
    BOOL read = FALSE;
    while ((read = ReadFile(file, buffer.data(), buffer.size(), &count, nullptr)) != FALSE &&
           count > 0) {
        text.append(buffer.data(), count);
    }
    CloseHandle(file);
    return read != FALSE ? std::optional(text) : std::nullopt;
}

// The file that a path stands for, links followed.
std::string Resolved(std::string const& path) {
    HANDLE const file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return path;
    }
    std::array<char, 4096> real{};
    DWORD const length =
        GetFinalPathNameByHandleA(file, real.data(), static_cast<DWORD>(real.size()), 0);
    CloseHandle(file);
    return length > 0 && length < real.size() ? std::string(real.data(), length) : path;
}

bool CarryOver(std::string const& from, std::string const& to) {
    std::array<std::byte, 64> owner{};
    DWORD size = 0;
    return GetFileSecurityA(from.c_str(), 0, owner.data(), owner.size(), &size) != FALSE &&
           SetFileSecurityA(to.c_str(), 0, owner.data()) != FALSE;
}

bool WriteNew(std::string const& path, std::string_view text) {
    HANDLE const file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return false;
    }
    DWORD count = 0;
    bool const written =
        WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr) != FALSE &&
        FlushFileBuffers(file) != FALSE;
    return CloseHandle(file) != FALSE && written;
}

} // namespace

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR standard, LPSTR buffer,
                               DWORD size, LPCSTR path) {
    if (size == 0) {
        return 0;
    }
    std::string_view value = standard != nullptr ? standard : "";
    std::string const ini = Contents(FullPath(path)).value_or("");
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
    std::string const target = Resolved(FullPath(path));
    bool const exists = GetFileAttributesA(target.c_str()) != INVALID_FILE_ATTRIBUTES;
    auto const old = Contents(target);
    if (exists && !old) {
        return FALSE; // what cannot be read is not replaced
    }
    std::string const text = kvarn::WithIniValue(
        old.value_or(""), section, key,
        value != nullptr ? std::optional<std::string_view>(value) : std::nullopt);
    std::string const temporary = target + "." + std::to_string(GetCurrentProcessId()) + ".tmp";
    BOOL const replaced =
        WriteNew(temporary, text) && (!exists || CarryOver(target, temporary))
            ? MoveFileExA(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING)
            : FALSE;
    if (replaced == FALSE) {
        DeleteFileA(temporary.c_str());
    }
    return replaced;
}
