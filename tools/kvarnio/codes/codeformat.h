// The four kinds of code files: their columns, and the records of each.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "../shared/finding.h"

namespace kvarnio {

struct Column {
    enum class Type { word, text, number, whole };

    char const* name;
    char const* help;
    Type type;
    bool isKey = false;              // tells the records apart
    bool isConverted = false;        // the library converts its DOS letters
    char const* option = nullptr;    // its name on the command line; null for an argument
    char const* otherwise = nullptr; // its value when it is left out
    int least = INT32_MIN;
    int most = INT32_MAX;
};

// A record, with a text for each column; numbers as their shortest digits.
struct CodeRecord {
    std::vector<std::string> cells; // in code page 1252
    char const* family = "";        // of a line code

    bool operator==(CodeRecord const& other) const { return cells == other.cells; }
};

using CodeRecords = std::vector<CodeRecord>;

struct CodeFormat {
    char const* kind;
    char const* what;
    char const* fileName; // null where the user names the file
    std::vector<Column> columns;
    bool hasFamilies;
    CodeRecords (*read)(std::string_view content);
    // The content anew with these records; what else of the old one is worth keeping is kept.
    // Throws Failure for one in which they would not be read.
    std::string (*write)(std::string_view old, CodeRecords const& records);
    std::vector<Finding> (*check)(std::string_view content);
    // Fills in what else was left out. Throws UsageError for a record that the file cannot hold.
    void (*complete)(CodeRecord& record);
};

// Whether two records stand for the same code.
bool SameKey(CodeFormat const& format, CodeRecord const& a, CodeRecord const& b);
// What tells the record from others, in UTF-8.
std::string NameOf(CodeFormat const& format, CodeRecord const& record);

// The names of the files are the project's at this moment.
std::vector<CodeFormat> CodeFormats();

} // namespace kvarnio
