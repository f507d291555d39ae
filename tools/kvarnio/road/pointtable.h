// A table of points or stations with separated fields, each line with the answers appended.
#pragma once

#include <string>

#include "../shared/failure.h"
#include "askedroads.h"
#include "tablelayout.h"

namespace kvarnio {

struct TableArguments {
    bool wanted = false;
    TableOptions options;
    std::string input;  // empty: standard input
    std::string output; // empty: standard output
};

// Lines that have no answer are named on standard error and stay in their place.
ExitStatus AnswerTable(AskedRoads const& roads, Question const& question,
                       TableArguments const& arguments);

} // namespace kvarnio
