// What a road file holds, and what of it is not read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "../finding.h"
#include "../vagfil.h"

namespace kvarn {

// The vertices of a plan or a profile, and the line of each.
struct VagfilPart {
    void Add(VagfilLine const& line) {
        vertices.push_back(line.vertex);
        lines.push_back(line.line.number);
    }

    std::vector<kovltype> vertices;
    std::vector<std::size_t> lines;
};

struct VagfilContent {
    VagfilPart plan;
    VagfilPart profile;
    std::vector<Finding> skipped; // lines that give no vertex
    std::vector<Finding> cut;     // text that is passed over on lines that do
};

VagfilContent ReadVagfil(std::string_view content);

} // namespace kvarn
