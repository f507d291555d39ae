// What is typed to name a code file's record, or to make one.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "codeformat.h"

namespace kvarnio {

struct CodesArguments {
    explicit CodesArguments(CodeFormat aFormat)
        : format(std::move(aFormat)), cells(format.columns.size()) {}

    CodeFormat format;
    std::string file;                              // the title block's
    std::vector<std::optional<std::string>> cells; // as typed
};

// A column's name as a heading, and as the help has it.
std::string Heading(Column const& column);

// The record that is typed, checked; what is left out is taken from another one, where there is
// one. Throws UsageError, with the reason.
CodeRecord Typed(CodesArguments const& arguments, CodeRecord const* other);

} // namespace kvarnio
