// Answers as lines of numbers and as JSON.
#pragma once

#include "../shared/failure.h"
#include "askedroads.h"

namespace kvarnio {

// To one question; where several roads are asked, of every road that has one.
ExitStatus AnswerOne(AskedRoads const& roads, Question const& question,
                     std::vector<double> const& numbers, bool json);

// To the questions on standard input, one on each line.
ExitStatus AnswerInput(AskedRoads const& roads, Question const& question, bool json);

} // namespace kvarnio
