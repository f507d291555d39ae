// Reads numbers and words from text, with the results of the runtime library's sscanf under a "."
// locale, whatever locale the process has: leading white space, sign, exponent, hexadecimal, inf
// and nan, and texts that only begin as a number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kvarn {

class Scanner {
  public:
    enum class Result { read, mismatch, end };

    // Up to the text's first zero.
    explicit Scanner(std::string_view text) : m_rest(text.substr(0, text.find('\0'))) {}

    // As "%hd" and as "%d" or "%ld" (32 bits); outside its bits a number saturates.
    Result Read(std::int16_t& value);
    Result Read(std::int32_t& value);
    // As "%f" and "%lf".
    Result Read(float& value);
    Result Read(double& value);
    // As "%s", whole: a part of the text.
    Result Read(std::string_view& word);
    // As "%s" with a width of N - 1: the word's rest stays for the next.
    template <std::size_t N> Result Read(char (&word)[N]) { return ReadWord(word, N); }
    Result ReadWord(char* word, std::size_t size);

  private:
    bool SkipBlanks();
    Result ReadInteger(std::int64_t& value);
    template <class T> Result ReadNumber(T& value);

    std::string_view m_rest;
};

// Reads the values one after another and stops at the first that fails. Returns how many it read,
// or -1 when the text ends before the first.
template <class... T> int Scan(std::string_view text, T&... values) {
    Scanner scanner(text);
    int count = 0;
    auto result = Scanner::Result::read;
    auto const read = [&](auto& value) {
        if (result == Scanner::Result::read) {
            result = scanner.Read(value);
            count += result == Scanner::Result::read ? 1 : 0;
        }
    };
    (read(values), ...);
    return count == 0 && result == Scanner::Result::end ? -1 : count;
}

} // namespace kvarn
