// The public headers: what programs call pages and controls, and which key each control shows.
#pragma once

#include <string>

#include "list.h"

namespace pages {

std::string ResourceHeader(std::vector<Page> const& pages);
std::string TableHeader(std::vector<Page> const& pages);

} // namespace pages
