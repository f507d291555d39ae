// Where a table holds the numbers that are asked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "questions.h"

namespace kvarnio {

// What the user says of a table.
struct TableOptions {
    std::string separator; // empty: it is found
    std::string columns;   // numbers from 1 or headings, with commas between; empty: they are found
    bool decimalComma = false;
};

struct TableLayout {
    char separator = ';';
    bool hasHeading = false;
    std::vector<std::size_t> columns; // one for each quantity; counted from 0
    std::size_t width = 0;            // the columns of the table
};

// Throws UsageError, with what to give, where the table does not tell. name: what messages call the
// table, here and below.
TableLayout LayoutOf(std::string const& name, std::string_view content, TableOptions const& options,
                     std::vector<Quantity const*> const& asked);

// A number in a field; nothing for anything else.
std::optional<double> NumberIn(std::string_view field, Quantity const& quantity, bool decimalComma);

// A field as messages show it.
std::string ShownField(std::string_view field);

} // namespace kvarnio
