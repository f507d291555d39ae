#pragma once

#include <string_view>
#include <vector>

#include "../shared/finding.h"

namespace kvarnio {

std::vector<Finding> CheckStenkod(std::string_view content, bool norwegian);
std::vector<Finding> CheckPoints(std::string_view content);

} // namespace kvarnio
