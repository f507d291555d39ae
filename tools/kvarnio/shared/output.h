// What the user sees: texts and paths of the library in the terminal's form, tables, JSON. What
// comes out is UTF-8, what goes in is in code page 1252.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>
#include <text/shown.h>

// Compiled once, in output.cpp: it would cost every other unit a second.
extern template class nlohmann::basic_json<nlohmann::ordered_map>;

namespace kvarnio {

using Json = nlohmann::ordered_json;

// A path of the library, as the host spells it.
std::string Shown(std::string_view path);

using kvarn::OneLine;
using kvarn::Shortest;

// Rows of UTF-8 cells in aligned columns, the first row being the heading. A cell that is wider
// than that moves only what follows it on its own row.
constexpr std::size_t widestCell = 40;
void PrintTable(std::vector<std::vector<std::string>> const& rows, std::size_t widest = widestCell);

// The one JSON text of a command's answer; bytes that are not UTF-8 are replaced.
void PrintJson(Json const& json);
// Whether there has been one.
bool JsonIsPrinted();

} // namespace kvarnio
