// The resource script of the pages in one language.
#pragma once

#include <string>

#include "list.h"

namespace pages {

// Throws std::runtime_error for a page without room and a text that code page 1252 lacks.
std::string Script(std::vector<Page> const& pages, Language language);

} // namespace pages
