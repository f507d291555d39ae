// The lines of a table with separated fields, and the fields of a line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvarnio {

enum class Quotes {
    closed,
    open,    // a quoted field has no end
    followed // text follows the end of a quoted field
};

// The fields as they stand, with their quotes. A field is quoted that begins with a quote; two
// quotes in it are one that does not end it.
Quotes SplitFields(std::string_view line, char separator, std::vector<std::string_view>& fields);

// What a field holds, without quotes and blanks around it.
std::string_view Held(std::string_view field);

// Appends a text as a field: in quotes where it would otherwise not be one.
void AppendField(std::string& out, std::string_view text, char separator);

struct CsvRecord {
    std::size_t line = 0; // on which it begins, counted from 1
    std::string_view text;
    std::string_view end; // the line end; empty at the table's end
    std::vector<std::string_view> fields;
    Quotes quotes = Quotes::closed;
    bool isPassed = false; // a blank line, one of empty fields, or one that begins with #
};

// Goes through a table's lines. A line whose quoted field goes on on the lines after it is taken
// together with these.
class CsvReader {
  public:
    CsvReader(std::string_view content, char separator) : m_rest(content), m_separator(separator) {}

    // False at the end.
    bool Next(CsvRecord& record);

  private:
    // The record of so many lines; fewer where the table ends.
    void Take(std::size_t lines, CsvRecord& record) const;

    std::string_view m_rest;
    char m_separator;
    std::size_t m_line = 1;
};

} // namespace kvarnio
