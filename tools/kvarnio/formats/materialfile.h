// The material lists, and the lines of the file that completes and overrides them, as the library
// reads them.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include <kvarnprog.h>

#include <formats/checks/linechecker.h>

namespace kvarnio {

using kvarn::TextLine;

enum class MaterialKind { rock = 0, fill = 1, soil = 2 }; // as the library numbers them

struct Materials {
    MaterialKind kind;
    bool norwegian;

    char const* FileName() const;
    bool HasSection() const { return kind != MaterialKind::soil; }
    // So many lines that begin with a star stand before the list's section.
    int StarsBefore() const { return kind == MaterialKind::rock ? 2 : 3; }
};

// The library's list; the objects must outlive it.
CBergOrMateLista ListOf(Materials const& materials, CAutoIni* ini, CProjPath* project);
std::vector<bergmattype> EntriesOf(CBergOrMateLista& list);
// The list as it is without a file.
std::vector<bergmattype> BuiltIn(Materials const& materials);

// A line of the list's section. What was not read of it is 0 or empty.
struct MaterialLine {
    TextLine const* line;
    int values; // so many were read; with fewer than two the line is ignored
    std::int16_t number;
    std::string_view name;
    std::string_view text;
    double scale;
    std::int16_t pattern;
    double degrees;
    std::int16_t flag;
    // The line that raises the file's numbers by one from there on, in Norwegian lists.
    bool isShift = false;
    // The entry that it changes or, being new, becomes; none for a line that is neither.
    std::optional<std::size_t> entry{};
    bool isNew = false;
};

// The section's lines in a file with these lines, which the caller keeps.
std::vector<MaterialLine> ReadMaterialLines(std::vector<TextLine> const& lines,
                                            Materials const& materials);

} // namespace kvarnio
