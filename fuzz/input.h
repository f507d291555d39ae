// The bytes of an input, taken apart into values: texts from the front, numbers from the end, as
// libFuzzer's own FuzzedDataProvider does it. That header comes with clang alone, and the corpora
// are replayed by any compiler.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

class Input {
  public:
    Input(std::uint8_t const* data, std::size_t size)
        : m_rest(reinterpret_cast<char const*>(data), size) {}

    std::size_t Remaining() const { return m_rest.size(); }

    std::string Bytes(std::size_t most) {
        std::string const bytes(m_rest.substr(0, most));
        m_rest.remove_prefix(bytes.size());
        return bytes;
    }
    std::string Rest() { return Bytes(m_rest.size()); }
    // A text that ends at a backslash; two of them stand for one.
    std::string Text(std::size_t longest = std::string::npos) {
        std::string text;
        while (text.size() < longest && !m_rest.empty()) {
            char const c = TakeFirst();
            if (c == '\\' && !m_rest.empty() && TakeFirst() != '\\') {
                break;
            }
            text += c;
        }
        return text;
    }

    // From as many bytes as the range needs; the least value when the input is used up.
    template <class T> T Number(T least, T most) {
        using Unsigned = std::make_unsigned_t<T>;
        std::uint64_t const range =
            static_cast<Unsigned>(static_cast<Unsigned>(most) - static_cast<Unsigned>(least));
        std::uint64_t number = 0;
        for (std::size_t bit = 0; bit < 8 * sizeof(T) && range >> bit != 0 && !m_rest.empty();
             bit += 8) {
            number = number << 8U | static_cast<unsigned char>(m_rest.back());
            m_rest.remove_suffix(1);
        }
        number = range == std::numeric_limits<std::uint64_t>::max() ? number : number % (range + 1);
        return static_cast<T>(static_cast<Unsigned>(least) + number);
    }
    template <class T> T Number() {
        return Number(std::numeric_limits<T>::min(), std::numeric_limits<T>::max());
    }
    bool Bool() { return Number<std::uint8_t>(0, 1) != 0; }
    template <class T, std::size_t N> T const& Pick(T const (&values)[N]) {
        return values[Number<std::size_t>(0, N - 1)];
    }

  private:
    char TakeFirst() {
        char const c = m_rest.front();
        m_rest.remove_prefix(1);
        return c;
    }

    std::string_view m_rest;
};
