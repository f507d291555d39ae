// The formatter beside the C library's snprintf, under the "C" locale: one conversion with any
// flags, width and precision.
#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "check.h"
#include "input.h"
#include "text/format.h"

namespace {

// What the compiler has checked of every format that the library uses.
constexpr int widest = 400;
constexpr int mostDecimals = 1100;

struct Format {
    std::string text = "%";
    std::vector<kvarn::FormatArgument> given; // width and precision by arguments
    std::vector<int> stars;                   // the same for snprintf
};

void AddNumber(Format& format, Input& provider, int least, int most) {
    int const number = provider.Number(least, most);
    if (number < 0 || provider.Bool()) {
        format.text += '*';
        format.given.emplace_back(std::int32_t{number});
        format.stars.push_back(number);
    } else if (number > 0) {
        format.text += std::to_string(number);
    }
}

Format AnyFormat(Input& provider, bool zeros) {
    Format format;
    format.text += provider.Bool() ? "-" : "";
    format.text += zeros && provider.Bool() ? "0" : "";
    AddNumber(format, provider, -widest, widest);
    if (provider.Bool()) {
        format.text += '.';
        AddNumber(format, provider, -1, mostDecimals);
    }
    return format;
}

template <class T> std::string Printed(Format const& format, T value) {
    auto const print = [&](char* out, std::size_t size) {
        char const* const text = format.text.c_str();
        std::vector<int> const& s = format.stars;
        return s.empty()       ? std::snprintf(out, size, text, value)
               : s.size() == 1 ? std::snprintf(out, size, text, s[0], value)
                               : std::snprintf(out, size, text, s[0], s[1], value);
    };
    std::string out(static_cast<std::size_t>(print(nullptr, 0)), '\0');
    print(out.data(), out.size() + 1);
    return out;
}

template <class T, class Argument>
void CheckFormat(Format format, char const* letter, T value, Argument argument) {
    format.text += letter;
    format.given.emplace_back(argument);
    Check(kvarn::FormatText(format.text, format.given) == Printed(format, value),
          "the text that snprintf gives");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Input provider(data, size);
    switch (provider.Number(0, 3)) {
    case 0: {
        auto const value = provider.Number<std::int32_t>();
        CheckFormat(AnyFormat(provider, true), "d", value, value);
        break;
    }
    case 1: {
        // "%0s" is undefined for the C library.
        std::string text = provider.Text();
        text.resize(std::min(text.find('\0'), text.size()));
        CheckFormat(AnyFormat(provider, false), "s", text.c_str(), std::string_view(text));
        break;
    }
    default: {
        auto const bits = provider.Number<std::uint64_t>();
        auto const value = std::bit_cast<double>(bits);
        CheckFormat(AnyFormat(provider, true), "lf", value, value);
        break;
    }
    }
    return 0;
}
