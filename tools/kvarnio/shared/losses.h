// What of a file is lost when it is written anew: told, and kept in a copy of the old file.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "context.h"
#include "finding.h"

namespace kvarnio {

struct Losses {
    std::vector<Finding> lines;
    std::size_t blank = 0; // blank lines, which are not worth a name
    std::string kept{};    // where the old file is, in UTF-8; empty before that, and without one

    bool None() const { return lines.empty() && blank == 0; }
};

// Those of the findings that this tool does not put back.
Losses LossesOf(std::vector<Finding> const& findings);

// Keeps a copy of the file that is about to be written, where there is one. An earlier copy is
// replaced, but for one with lines that a writing dropped: they are nowhere else, and it gets a
// number after its name. Throws IoFailure when that cannot be done. Paths are the library's, here
// and below.
using FormatCheck = std::function<std::vector<Finding>(std::string_view content)>;
void KeepOld(std::string const& path, Losses& losses, FormatCheck const& check);

// Each on standard error, and where the old file is.
void PrintLosses(std::string const& path, Losses const& losses);
// As members of an object: "backup", "dropped", "blankLinesDropped".
void AddLosses(Json& json, Losses const& losses);

// A change that was meant for the project and went to everybody.
void WarnOfSharedFile(Context const& context, std::string const& path, std::string const& name);

} // namespace kvarnio
