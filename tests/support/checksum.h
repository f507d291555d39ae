// A checksum for tables of constants, which a test then does not repeat.
#pragma once

#include <cstdint>
#include <string_view>

// FNV-1a.
constexpr std::uint64_t Checksum(std::string_view bytes) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (char const c : bytes) {
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    }
    return sum;
}
