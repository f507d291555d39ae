// What is found wrong with a file, and what of it is lost when the file is written.
#pragma once

#include <cstddef>
#include <string>

#include "rule.h"

namespace kvarn {

// What becomes of that part of the file when the library rewrites it.
enum class Loss {
    none,   // it is kept
    line,   // it is not read, and gone then
    header, // the same, but the tool puts it back
    blank   // a blank line, gone then and not worth a name
};

// A place in a file and what is to be said of it.
struct Finding {
    std::size_t line = 0; // counted from 1; 0: the file as such
    Rule rule{};
    std::string what{}; // in UTF-8
    Loss loss = Loss::none;
    std::string text{}; // the text at that place, in code page 1252

    Severity HowBad() const {
        bool const isLost = loss == Loss::line || loss == Loss::header;
        return isLost ? Severity::lost : TextOf(rule).severity;
    }
};

} // namespace kvarn
