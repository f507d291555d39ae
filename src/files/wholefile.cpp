#include "wholefile.h"

#include <array>

#include "../compat/calls.h"

namespace kvarn {

std::optional<std::string> WholeFile(char const* path) {
    HANDLE const file =
        CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
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
    return read != FALSE ? std::optional(std::move(text)) : std::nullopt;
}

} // namespace kvarn
