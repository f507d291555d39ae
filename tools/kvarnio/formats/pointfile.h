// The lines of a support point file: what the library reads each of them as.
#pragma once

#include <array>
#include <vector>

#include <formats/checks/linechecker.h>

namespace kvarnio {

using kvarn::TextLine;

// Three lines below each other; a file that ends inside a block has fewer.
struct PointBlock {
    TextLine const* name;
    TextLine const* level = nullptr;
    TextLine const* rest = nullptr; // a point's six values; nothing of the block "gvy"

    bool IsGvy() const;
};

struct PointFile {
    std::array<TextLine const*, 6> header{}; // where each number is looked for
    std::vector<TextLine const*> skipped;    // from the last of them to the header's end
    TextLine const* headerEnd = nullptr;
    std::vector<PointBlock> blocks;
    TextLine const* end = nullptr; // the line "*"; none where the file ends without it
};

// Of a file with these lines, which the caller keeps.
PointFile ReadPointFile(std::vector<TextLine> const& lines);

// Whether a number is read from a line of the header.
bool HoldsNumber(TextLine const& line);

// As many of a point's six values as its line begins with.
std::vector<double> ValuesIn(TextLine const* line);

} // namespace kvarnio
