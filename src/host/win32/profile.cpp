#include "profile.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "../../compat/win32/files.h"
#include "../../compat/win32/paths.h"
#include "../../compat/win32/turn.h"
#include "../../files/filerewrite.h"
#include "../../files/infile.h"
#include "../../text/utf16.h"
#include "initext.h"
#include "parsedfile.h"

namespace {

constexpr char const* windowsFolder = "C:\\Windows";

bool IsBare(std::string_view path) {
    return path.find_first_of("\\/:") == std::string_view::npos;
}

// Windows looks for a bare name in its own folder (GetPrivateProfileString in the Windows
// documentation).
std::string FullPath(LPCSTR path) {
    std::string const name = path != nullptr ? path : "WIN.INI";
    return IsBare(name) ? std::string(windowsFolder) + "\\" + name : name;
}

std::u16string Changed(std::u16string_view ini, LPCSTR section, LPCSTR key, LPCSTR value) {
    std::u16string const name = kvarn::ToUtf16(section);
    if (key == nullptr) {
        return kvarn::WithoutIniSection(ini, name);
    }
    std::optional<std::u16string> const newValue =
        value != nullptr ? std::optional(kvarn::ToUtf16(value)) : std::nullopt;
    return kvarn::WithIniValue(ini, name, kvarn::ToUtf16(key), newValue);
}

// The file that was asked last: a start asks one for all of its keys.
struct Memory {
    std::mutex inUse;
    kvarn::ParsedFile<kvarn::IniText> ini;
};

Memory& LastRead() {
    static Memory memory;
    return memory;
}

// Nothing also when the file cannot be read, or memory is short.
std::optional<std::string> Value(std::string const& path, LPCSTR section, LPCSTR key) try {
    Memory& memory = LastRead();
    std::lock_guard const inUse(memory.inUse);
    kvarn::IniText const* const ini = memory.ini.Load(path);
    if (ini == nullptr) {
        return std::nullopt;
    }
    auto const found = kvarn::IniValue(ini->text, kvarn::ToUtf16(section), kvarn::ToUtf16(key));
    return found ? std::optional(kvarn::FromUtf16(*found)) : std::nullopt;
} catch (std::bad_alloc const&) {
    return std::nullopt;
}

} // namespace

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR standard, LPSTR buffer,
                               DWORD size, LPCSTR path) {
    if (size == 0) {
        return 0;
    }
    std::optional<std::string> found;
    if (section != nullptr && key != nullptr) {
        found = Value(FullPath(path), section, key);
    }
    std::string_view const otherwise = standard != nullptr ? standard : "";
    std::string_view const value = found ? std::string_view(*found) : otherwise;
    std::size_t const length = std::min<std::size_t>(value.size(), size - 1);
    value.copy(buffer, length);
    buffer[length] = '\0';
    return static_cast<DWORD>(length);
}

BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR path) try {
    if (section == nullptr) {
        return FALSE;
    }
    std::string const target = FullPath(path);
    kvarn::Turn const turn(kvarn::HostPath(target));
    auto const old = kvarn::WholeFileIfThere(target.c_str());
    kvarn::IniText ini(old.value_or(""));
    if (!turn.Taken() || !old || !ini.whole) {
        return FALSE; // replacing a file that was not read whole would lose the rest
    }
    std::u16string text = Changed(ini.text, section, key, value);
    if (text == ini.text) {
        return TRUE;
    }
    ini.text = std::move(text);
    if (IsBare(path != nullptr ? path : "")) {
        std::error_code unwritable; // the write below fails then
        std::filesystem::create_directories(kvarn::HostPath(windowsFolder), unwritable);
    }
    return kvarn::RewriteFile(target.c_str(), ini.Bytes()) == kvarn::Rewritten::done ? TRUE : FALSE;
} catch (std::bad_alloc const&) {
    return FALSE;
}
