#include "arguments.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include <text/codepage.h>

#include "failure.h"

namespace kvarnio {
namespace {

template <class T> T Parsed(char const* what, std::string const& typed, char const* wanted) {
    T number{};
    char const* const end = typed.data() + typed.size();
    auto const parsed = std::from_chars(typed.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end) {
        throw UsageError(std::string(what) + " \"" + typed + "\" is not " + wanted);
    }
    return number;
}

std::string HasNoPlace(std::string const& what, std::string const& typed) {
    return what + " \"" + typed +
           "\" holds a letter outside code page 1252, which the files are in";
}

} // namespace

std::string In1252(std::string const& what, std::string const& typed) {
    std::string text;
    for (std::string_view rest = typed; !rest.empty();) {
        auto const letter = kvarn::TakeCodePoint(rest);
        if (!letter) {
            throw UsageError(what + " is not UTF-8 from byte " +
                             std::to_string(typed.size() - rest.size() + 1) + " on");
        }
        auto const byte = kvarn::Byte1252(*letter);
        if (!byte) {
            throw UsageError(HasNoPlace(what, typed));
        }
        text += *byte;
    }
    return text;
}

std::string Text(char const* what, std::string const& typed) {
    std::string text = In1252(what, typed);
    if (std::any_of(text.begin(), text.end(),
                    [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; })) {
        throw UsageError(std::string(what) + " holds a line end or another control character");
    }
    return text;
}

std::string FileName(std::string const& typed) {
    return Text("FILE", typed);
}

std::string Key(std::string const& typed) {
    std::string key = Text("KEY", typed);
    if (key.empty()) {
        throw UsageError("KEY is empty");
    }
    if (key.find('=') != std::string::npos) {
        throw UsageError("KEY \"" + typed + R"(" holds a "=", which would end it in the file)");
    }
    return key;
}

std::string Value(std::string const& typed) {
    return Text("VALUE", typed);
}

int WholeNumber(char const* what, std::string const& typed) {
    return Parsed<int>(what, typed, "a whole number of 32 bits");
}

double Number(char const* what, std::string const& typed) {
    char const* const wanted =
        typed.find(',') != std::string::npos ? "a number: the decimal sign is a point" : "a number";
    auto const number = Parsed<double>(what, typed, wanted);
    if (!std::isfinite(number)) {
        throw UsageError(std::string(what) + " \"" + typed + "\" is not a number");
    }
    return number;
}

char Separator(std::string const& typed) {
    constexpr std::string_view inNumbers = "+-./#\"";
    if (typed == "tab" || typed == "\\t" || typed == "\t") {
        return '\t';
    }
    auto const isPrintable = [](char c) { return c > ' ' && c < 0x7F; };
    auto const isLetterOrDigit = [](char c) {
        return (c >= '0' && c <= '9') || (kvarn::Lower1252(c) >= 'a' && kvarn::Lower1252(c) <= 'z');
    };
    if (typed.size() != 1 || !isPrintable(typed[0]) || isLetterOrDigit(typed[0]) ||
        inNumbers.find(typed[0]) != std::string_view::npos) {
        throw UsageError("--separator \"" + typed +
                         "\" separates no fields; give one character such as \";\" or \",\", or "
                         "the word tab");
    }
    return typed[0];
}

} // namespace kvarnio
